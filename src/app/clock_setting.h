// The two windows that set the clock by hand, opened from the menu as sheets of the main window. Main thread only.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

namespace tickervantage {

class DefaultSettings;
class PrivilegedMenu;
class TickervantageWindow;

// All of it outlives the windows.
struct ClockSettingParts {
    AdministrativeJobs& jobs;
    PrivilegedMenu& menu;
    DefaultSettings& settings;
    TickervantageWindow& window;
};

// "synchServer" and "stepTime".
void connect_clock_setting_items(const ClockSettingParts& parts, const ApplicationMenus& menus);

} // namespace tickervantage
