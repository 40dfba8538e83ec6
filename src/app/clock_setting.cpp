#include "app/clock_setting.h"

#include "gui/administration/step_time_window.h"
#include "gui/administration/synchronize_window.h"
#include "qt/spoken.h"

namespace tickervantage {
namespace {

void show_synchronize(const ClockSettingParts& parts) {
    const auto synchronise = [parts](const Synchronisation& what, auto done) {
        AdminRequest request{AdminJob::synchronise};
        request.server = what.server;
        request.timeout_seconds = what.timeout_seconds;
        request.restart = what.restart_chronyd;
        parts.jobs.run(request, [parts, done](const JobResult& result) {
            done(SynchronizeOutcome{.output = result.output, .sentence = result.sentence, .done = result.done});
            parts.changed();
        });
    };
    auto* window = new Synchronize({.settings = parts.settings, .synchronise = synchronise}, parts.window());
    window->windowDidLoad();
    window->show();
}

void show_step_time(const ClockSettingParts& parts) {
    const auto step_by = [parts](double offset_seconds) {
        AdminRequest request{AdminJob::step};
        request.offset_seconds = offset_seconds;
        parts.jobs.run(request, [parts](const JobResult& result) {
            if (!result.done && !result.sentence.empty())
                parts.say(spoken(result.sentence));
            parts.changed();
        });
    };
    (new StepTime(step_by, parts.window()))->show(); // deletes itself
}

} // namespace

void connect_clock_setting_items(const ClockSettingParts& parts, const ApplicationMenus& menus) {
    menus.on("synchServer", [parts] { show_synchronize(parts); });
    menus.on("stepTime", [parts] { show_step_time(parts); });
}

} // namespace tickervantage
