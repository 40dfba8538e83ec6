#include "roothelper/jobs/old_installation.h"

#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/job_machine.h"

namespace tickervantage {
namespace {

// What a line answers is not looked at: a service that is not loaded cannot be stopped, which does no harm.
void remove_service(JobMachine& machine, ServiceForm form, PrivilegedActions& actions, const std::string& label) {
    if (!actions.blessHelper())
        return;
    for (const auto& line : removal_lines(form, label)) {
        (void)actions.execute(line.command);
        if (line.pause_seconds > 0)
            machine.pause(line.pause_seconds);
    }
}

} // namespace

const std::vector<std::string>& old_installation_labels() {
    static const std::vector<std::string> labels{"org.tuxfamily.chronyc", "org.tuxfamily.chronyd"};
    return labels;
}

void remove_old_installations(JobMachine& machine, ServiceForm form, const std::shared_ptr<PrivilegedActions>& actions,
                              DispatchQueueSerial& queue) {
    for (const auto& label : old_installation_labels()) {
        if (!machine.file_exists(definition_path(form, label)))
            continue;
        queue.async([&machine, form, label, weak = std::weak_ptr(actions)] {
            if (const auto alive = weak.lock())
                remove_service(machine, form, *alive, label);
        });
    }
}

} // namespace tickervantage
