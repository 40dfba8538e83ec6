// What is wrong with how the clock is kept, and which one thing mends it: the most harmful first.
#pragma once

#include "chrony/configuration/tracking_log_setting.h"
#include "chrony/truth/verdict.h"
#include "roothelper/jobs/installation_offers.h"
#include "roothelper/jobs/job_machine.h"

#include <optional>
#include <string>

namespace tickervantage {

enum class Mending : unsigned char {
    none,             // nothing is wrong, or nothing here mends it
    install,          // there is no chrony
    use_distribution, // another one is shown, or none, while this system has its own
    start,            // nothing keeps the clock
    explain,          // the sources are bad: the reasons tell what would help
    turn_on_logging,
    open_logs, // which only their owner may read
};

// What was seen of the machine; of a machine that was not looked at yet nothing is wrong.
struct MendingFacts {
    bool is_known = false;
    bool is_demonstration = false; // a chronyd of its own is shown, which leaves the machine alone
    bool is_installed = true;      // chronyd and chronyc lie where the preferences have them
    bool has_service = true;       // that starts this chronyd
    bool is_running = true;        // this chronyd
    std::optional<DistributionChrony> distribution = {}; // another one than that which is shown
    bool distribution_runs = false;
    std::string other_program = {}; // that sets the clock in place of a chronyd: "systemd-timesyncd"; empty: none known
    TrackingLogSetting log = TrackingLogSetting::unknown;
    bool log_is_closed = false; // its folder or the log itself cannot be read by this user
};

// A pure function, any thread.
[[nodiscard]] Mending what_mends(Verdict verdict, const MendingFacts& facts);

// Looks at files and processes, which waits for the disk.
[[nodiscard]] MendingFacts look_for_mending(const InstalledPaths& paths, bool is_demonstration,
                                            const JobMachine& machine, ServiceForm form = native_service_form);

} // namespace tickervantage
