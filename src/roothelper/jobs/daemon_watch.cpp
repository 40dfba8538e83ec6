#include "roothelper/jobs/daemon_watch.h"

#include "chrony/reports/running_check.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/jobs/job_machine.h"

namespace tickervantage {

bool DaemonWatch::is_up(const std::string& unit) const {
    if (form == ServiceForm::launchd)
        return any_chronyd_runs(execute);
    const std::string name = unit.empty() ? std::string(daemon_label) + ".service" : unit;
    const auto answer = execute.run({.program = "/bin/systemctl", .arguments = {"is-active", "--quiet", name}});
    return answer.outcome == ExecuteOutcome::exited && answer.exit_status == 0;
}

bool DaemonWatch::daemon_survives(const std::string& unit) const {
    if (form == ServiceForm::systemd && unit.empty())
        return is_up(unit);
    for (int second = 0; second < watch_seconds; ++second) {
        machine.pause(1);
        if (!is_up(unit))
            return false;
    }
    return true;
}

} // namespace tickervantage
