// Everything that the main window works with, in the test's hands.
#pragma once

#include "chrony/status/status_cycle.h"
#include "settings/default_settings.h"
#include "support/fake_privileged_channel.h"
#include "support/manual_dispatch.h"
#include "support/manual_timer.h"
#include "support/memory_stores.h"
#include "support/scripted_execute.h"
#include "support/tracking_text.h"

namespace tickervantage::testing {

struct FakeMainWindowParts {
    ScriptedExecute execute;
    FakePrivilegedChannel channel;
    std::shared_ptr<PrivilegedActions> actions = std::make_shared<PrivilegedActions>(channel);
    ManualQueue queue;
    ManualQueue reports;
    ManualMainThread main_thread;
    ManualMasterTimer timer;
    Broadcast broadcast{main_thread};
    MemorySettingsStore store;
    DefaultSettings settings{store};
    PreferencesGeneral preferences; // without paths: the programs of the bundle
    bool gpsd_found = false;
    std::string root = "/no/such/machine"; // where a chronyd is looked for

    FakeMainWindowParts() {
        report();
        execute.answer("chronyc -v", "chronyc (chrony) version 4.3 (+READLINE)\n");
        execute.answer("chronyd -v", "chronyd (chrony) version 4.3 (+CMDMON)\n");
    }

    // What chronyd says from now on, in both forms; `sources` as lines of data.
    void report(const std::string& leap = "Normal", const std::string& sources = {}) {
        execute.answer("chronyc tracking", tracking_text(leap));
        execute.answer("chronyc -m", tracking_line(leap) + sources + "0,0,0,0,0\n");
    }
    void fall_silent() {
        for (const char* run : {"chronyc tracking", "chronyc -m"})
            execute.answer(run, "506 Cannot talk to daemon\n", 1);
    }

    [[nodiscard]] StatusCycleParts parts() {
        return {execute, *actions, queue, reports, main_thread, timer, broadcast, settings};
    }

    [[nodiscard]] StatusCycleOptions options() {
        return {.preferences = preferences,
                .bundle = "/bundle",
                .gpsd_application_found = [this] { return gpsd_found; },
                .root = root};
    }

    // Lets everything that is under way come to its end.
    void settle() {
        while (queue.turn() || reports.turn() || main_thread.turn()) {
        }
    }
};

} // namespace tickervantage::testing
