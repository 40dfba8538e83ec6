// What `tickerctl admin JOB` does: prints the series of a job, or carries it out.
//
// Results are exit statuses: 0 done, 1 not done, with one sentence on `err`. The JSON of a dry run is an array of
// {"request"}, {"sleep"} and {"write": {"path", "text"}}; that of a real one says what came of each request.
#pragma once

#include "cli/configuration/settings_command.h"
#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/job_catalogue.h"

#include <functional>
#include <iosfwd>

namespace tickervantage {

struct AdminCommand {
    JobSetting setting;
    JobMachine& machine;
    OutputForm form = OutputForm::text;
    std::ostream& out;
    std::ostream& err;
    std::function<void(AdminJob job, const Result<>& outcome)> ended = {}; // once a job that had the rights is over

    [[nodiscard]] int dry_run(const AdminRequest& request) const;

    // Asks for the rights first. Blocks until the job has ended.
    [[nodiscard]] int carry_out(const AdminRequest& request, PrivilegedActions& actions) const;
};

// The distribution's chrony is used without a word of the user where none of the paths was ever set: that is said, once
// for each settings file, by the desktop program or by tickerctl, whichever comes first.

struct PreferencesGeneral;
class WarningRegister;

// Writes one line, unless it was written before. Whether it did.
bool tell_unasked_choice(const PreferencesGeneral& general, WarningRegister& warnings, std::ostream& err);

} // namespace tickervantage
