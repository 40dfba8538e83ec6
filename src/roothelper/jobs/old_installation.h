// Removal of the services that older chrony installations left behind.
#pragma once

#include "base/dispatch.h"
#include "chrony/services/service_definitions.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

class PrivilegedActions;

// The labels of the services that older installations used, in the order in which they are removed.
[[nodiscard]] const std::vector<std::string>& old_installation_labels();

struct OldInstallationRemoval {
    ServiceForm form = native_service_form;
    std::function<bool(const std::string& path)> file_exists;
    std::function<void(int seconds)> pause; // gives the service manager time to settle; called on the queue
};

// For each old service that is installed, queues a job that stops it and removes its definition as root. The jobs hold
// the actions weakly: they do nothing once those are gone. What the commands answer is not looked at.
void remove_old_installations(const OldInstallationRemoval& how, const std::shared_ptr<PrivilegedActions>& actions,
                              DispatchQueueSerial& queue);

} // namespace tickervantage
