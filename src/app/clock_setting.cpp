#include "app/clock_setting.h"

#include "app/privileged_menu.h"
#include "gui/administration/step_time_window.h"
#include "gui/administration/synchronize_window.h"
#include "gui/main/tickervantage_window.h"

#include <QPointer>

namespace tickervantage {
namespace {

// The window may have gone when the job comes to its end.
void show_synchronize(const ClockSettingParts& parts) {
    auto* window = new Synchronize(parts.settings, &parts.window);
    QObject::connect(window, &Synchronize::wanted, window,
                     [parts, window = QPointer(window)](const Synchronisation& what) {
                         const AdminRequest request{.job = AdminJob::synchronise,
                                                    .server = what.server,
                                                    .timeout_seconds = what.timeout_seconds,
                                                    .restart = what.restart_chronyd};
                         parts.jobs.run(request, [parts, window](const JobResult& result) {
                             if (window)
                                 window->show_result(result);
                             parts.window.cycle().refresh();
                         });
                     });
    window->windowDidLoad();
    window->show();
}

void show_step_time(const ClockSettingParts& parts) {
    auto* window = new StepTime(&parts.window); // deletes itself
    QObject::connect(window, &StepTime::wanted, &parts.menu, [&menu = parts.menu](double offset_seconds) {
        menu.run({.job = AdminJob::step, .offset_seconds = offset_seconds});
    });
    window->show();
}

} // namespace

void connect_clock_setting_items(const ClockSettingParts& parts, const ApplicationMenus& menus) {
    menus.on("synchServer", [parts] { show_synchronize(parts); });
    menus.on("stepTime", [parts] { show_step_time(parts); });
}

} // namespace tickervantage
