#include "roothelper/jobs/old_installation.h"

#include "roothelper/client/privileged_actions.h"

namespace tickervantage {
namespace {

// What a line answers is not looked at: a service that is not loaded cannot be stopped, which does no harm.
void remove_service(const OldInstallationRemoval& how, PrivilegedActions& actions, const std::string& label) {
    if (!actions.blessHelper())
        return;
    for (const auto& line : removal_lines(how.form, label)) {
        (void)actions.execute(line.command);
        if (line.pause_seconds > 0)
            how.pause(line.pause_seconds);
    }
}

} // namespace

const std::vector<std::string>& old_installation_labels() {
    static const std::vector<std::string> labels{"org.tuxfamily.chronyc", "org.tuxfamily.chronyd"};
    return labels;
}

void remove_old_installations(const OldInstallationRemoval& how, const std::shared_ptr<PrivilegedActions>& actions,
                              DispatchQueueSerial& queue) {
    for (const auto& label : old_installation_labels()) {
        if (!how.file_exists(definition_path(how.form, label)))
            continue;
        queue.async([how, label, weak = std::weak_ptr(actions)] {
            if (const auto alive = weak.lock())
                remove_service(how, *alive, label);
        });
    }
}

} // namespace tickervantage
