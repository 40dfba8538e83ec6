#include "roothelper/jobs/job_catalogue.h"

#include "base/failure_codes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::array<AdminJobEntry, 18> entries{{
    {AdminJob::install, "install", "net.brisklane.installchrony", "Installing chrony software"},
    {AdminJob::uninstall, "uninstall", "net.brisklane.uninstallchrony", "Removing chrony software"},
    {AdminJob::start, "start", "net.brisklane.startchrony", "Starting chronyd daemon"},
    {AdminJob::stop, "stop", "net.brisklane.stopchrony", "Stopping chronyd daemon"},
    {AdminJob::wake_tool, "install-wake", "net.brisklane.installwake", "Installing chronywake"},
    {AdminJob::run_wake, "run-wake", "net.brisklane.runchronywake", "Running chronywake"},
    {AdminJob::install_config, "install-config", "net.brisklane.installconfig", "Installing the configuration"},
    {AdminJob::restore_config, "restore-config", "net.brisklane.installconfig", "Bringing back a configuration"},
    {AdminJob::install_tempcomp, "install-tempcomp", "net.brisklane.installconfig", "Installing the compensation"},
    {AdminJob::remove_tempcomp, "remove-tempcomp", "net.brisklane.installconfig", "Taking back the compensation"},
    {AdminJob::rotate_logs, "rotate-logs", "net.brisklane.rotatelogs", "Rotating chrony's logs"},
    {AdminJob::log_permission, "log-permission", "net.brisklane.logpermission", ""},
    {AdminJob::restart_gpsd, "restart-gpsd", "net.brisklane.restartgpsd", ""},
    {AdminJob::remove_old, "remove-old", "net.brisklane.removetuxfamily", ""},
    {AdminJob::synchronise, "sync", "net.brisklane.tickervantage.sync", "Synchronising the clock"},
    {AdminJob::step, "step", "net.brisklane.steptime", ""},
    {AdminJob::running_check, "running-check", "net.brisklane.runningcheck", ""},
    {AdminJob::adjust_clock, "adjust-clock", "net.brisklane.adjustclock", "Restarting chronyd daemon"},
}};

} // namespace

std::span<const AdminJobEntry> all_admin_jobs() {
    return entries;
}

const AdminJobEntry& entry_of(AdminJob job) {
    return *std::ranges::find(entries, job, &AdminJobEntry::job);
}

std::string progress_text(AdminJob job, const JobSetting& setting) {
    if (job == AdminJob::wake_tool && !setting.install_wake)
        return "Removing chronywake";
    return std::string(entry_of(job).progress);
}

JobResult rehearse(const AdminRequest& request, const JobSetting& setting, const JobMachine& machine) {
    RecordedSteps unheard;
    return play(request, setting, machine, unheard);
}

namespace {

Result<> play(const AdminRequest& request, ChronyJobs& jobs) {
    switch (request.job) {
    case AdminJob::install:
        return jobs.install();
    case AdminJob::uninstall:
        return jobs.uninstall();
    case AdminJob::start:
        return jobs.start();
    case AdminJob::stop:
        return jobs.stop();
    case AdminJob::wake_tool:
        return jobs.wake_tool();
    case AdminJob::run_wake:
        return jobs.run_chronywake();
    case AdminJob::install_config:
    case AdminJob::restore_config: // what was good once is checked like any other
        return jobs.install_configuration(request.configuration);
    case AdminJob::install_tempcomp:
        return jobs.install_compensation(request.compensation);
    case AdminJob::remove_tempcomp:
        return jobs.remove_compensation();
    case AdminJob::rotate_logs:
        return jobs.rotate_logs();
    case AdminJob::log_permission:
        return jobs.log_permission();
    case AdminJob::restart_gpsd:
        return jobs.restart_gpsd();
    case AdminJob::remove_old:
        return jobs.remove_old();
    case AdminJob::synchronise:
        return jobs.synchronise(request.server, request.timeout_seconds, request.restart);
    case AdminJob::step:
        return jobs.step(request.offset_seconds);
    case AdminJob::running_check:
        return jobs.running_check();
    case AdminJob::adjust_clock:
        return jobs.adjust_clock();
    }
    return failed(FailureCode::no_such_job);
}

} // namespace

JobResult play(const AdminRequest& request, const JobSetting& setting, const JobMachine& machine, JobSteps& steps) {
    ChronyJobs jobs(setting, machine, steps);
    auto outcome = play(request, jobs);
    return {.outcome = std::move(outcome), .output = jobs.output()};
}

bool is_untold_failure(const Result<>& outcome) {
    return !outcome && outcome.error().code != FailureCode::nothing_done;
}

} // namespace tickervantage
