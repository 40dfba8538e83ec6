// The administrative jobs by name, each with the queue it runs on and what people are told meanwhile.
#pragma once

#include "base/failure.h"
#include "roothelper/jobs/chrony_jobs.h"

#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

// What came of an administrative job.
struct JobResult {
    Result<> outcome = {};   // what was stopped for a job that failed runs again
    std::string output = {}; // of the one command that the job is about, where it is about one
};

// Whether people must still hear of it: a refusal of the rights was told when it came up.
[[nodiscard]] bool is_untold_failure(const Result<>& outcome);

enum class AdminJob : unsigned char {
    install,
    uninstall,
    start,
    stop,
    wake_tool,
    run_wake,
    install_config,
    restore_config,
    install_tempcomp,
    remove_tempcomp,
    rotate_logs,
    log_permission,
    restart_gpsd,
    remove_old,
    synchronise,
    step,
    running_check,
    adjust_clock,
};

// One job, with what it works on; the fields of other jobs are left alone.
struct AdminRequest {
    AdminJob job = AdminJob::install;
    std::string configuration = {}; // the text to be installed, or to be brought back
    std::string server = {};
    int timeout_seconds = 30;
    bool restart = true; // after a synchronisation
    double offset_seconds = 0;
    CompensationOrder compensation = {};
};

struct AdminJobEntry {
    AdminJob job;
    std::string_view name;     // on the command line
    std::string_view queue;    // label
    std::string_view progress; // empty: none is shown
};

[[nodiscard]] std::span<const AdminJobEntry> all_admin_jobs();
[[nodiscard]] const AdminJobEntry& entry_of(AdminJob job);

// As in the entry, but for the wake tool, which is installed or removed.
[[nodiscard]] std::string progress_text(AdminJob job, const JobSetting& setting);

// What is against the job whatever the rights, found without asking anybody for them: done when nothing is.
[[nodiscard]] JobResult rehearse(const AdminRequest& request, const JobSetting& setting, const JobMachine& machine);

// Plays the job. Blocks for as long as its steps do.
[[nodiscard]] JobResult play(const AdminRequest& request, const JobSetting& setting, const JobMachine& machine,
                             JobSteps& steps);

} // namespace tickervantage
