// The window of the configurations that were installed last, opened from the menu. Main thread only.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <functional>
#include <string>

class QWidget;

namespace tickervantage {

// All of it outlives the window.
struct FormerConfigurationsParts {
    AdministrativeJobs& jobs;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    JobProbes probes;                           // of which those that read are used, on the queue
    std::function<std::string()> configuration; // its path
    std::function<QWidget*()> window;
    std::function<void()> changed; // the daemon
};

// "formerConfigurations".
void connect_former_configurations_item(const FormerConfigurationsParts& parts, const ApplicationMenus& menus);

} // namespace tickervantage
