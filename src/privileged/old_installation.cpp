#include "privileged/old_installation.h"

#include "privileged/privileged_actions.h"

namespace tickervantage {
namespace {

void remove_service(const OldInstallationRemoval& how, PrivilegedActions& actions, const std::string& label) {
    (void)actions.execute(stop_line(how.form, label)); // a service that is not loaded cannot be stopped: no harm
    how.pause(2);
    (void)actions.execute(remove_line(how.form, label));
    how.pause(1);
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
