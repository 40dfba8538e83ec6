// The window of the configurations that were installed last, opened from the menu. Main thread only.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

namespace tickervantage {

class TickervantageWindow;
struct PreferencesGeneral;

// All of it outlives the window.
struct FormerConfigurationsParts {
    AdministrativeJobs& jobs;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    const JobMachine& machine; // on the queue
    const PreferencesGeneral& general;
    TickervantageWindow& window;
};

// "formerConfigurations".
void connect_former_configurations_item(const FormerConfigurationsParts& parts, const ApplicationMenus& menus);

} // namespace tickervantage
