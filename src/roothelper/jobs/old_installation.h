// Removal of the services that older chrony installations left behind.
#pragma once

#include "base/dispatch.h"
#include "chrony/services/service_definitions.h"

#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

class JobMachine;
class PrivilegedActions;

// The labels of the services that older installations used, in the order in which they are removed.
[[nodiscard]] const std::vector<std::string>& old_installation_labels();

// For each old service that is installed, queues a job that stops it and removes its definition as root. The jobs hold
// the actions weakly: they do nothing once those are gone. The machine outlives the queue. What the commands answer is
// not looked at.
void remove_old_installations(JobMachine& machine, ServiceForm form, const std::shared_ptr<PrivilegedActions>& actions,
                              DispatchQueueSerial& queue);

} // namespace tickervantage
