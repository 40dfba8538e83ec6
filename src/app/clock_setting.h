// The two windows that set the clock by hand, opened from the menu as sheets of the main window. Main thread only.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <QString>

#include <functional>

class QWidget;

namespace tickervantage {

class DefaultSettings;

// All of it outlives the windows.
struct ClockSettingParts {
    AdministrativeJobs& jobs;
    DefaultSettings& settings;
    std::function<QWidget*()> window;
    std::function<void()> changed; // the clock, or the daemon
    std::function<void(const QString& sentence)> say;
};

// "synchServer" and "stepTime".
void connect_clock_setting_items(const ClockSettingParts& parts, const ApplicationMenus& menus);

} // namespace tickervantage
