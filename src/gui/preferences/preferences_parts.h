// What the preferences window works with; all of it outlives the window, and the main thread outlives the queue.
#pragma once

#include "base/dispatch.h"
#include "base/path_state.h"
#include "settings/preferences.h"
#include "settings/warning_register.h"

#include <functional>
#include <string>

namespace tickervantage {

// All three on the queue. The first two: 0, or -1 and one sentence.
struct LaunchAtLogin {
    std::function<int(std::string& sentence)> writePlist;
    std::function<int(std::string& sentence)> unlinkAgent;
    std::function<bool()> agentIsValid;
};

struct PreferencesParts {
    DefaultSettings& settings;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    WarningRegister& warnings;
    // The records that the whole program reads: every change in the window is in them at once.
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    std::function<PathState(const std::string& path)> path_state; // on the queue
    LaunchAtLogin launch_at_login;
    // The rest may be missing.
    std::function<ChronyPaths()> usual_paths = {}; // where chrony lies by default; missing: as documented
    std::function<void()> general_changed;         // when an edit is finished, not at every letter
    std::function<void()> advanced_changed;
    // Installs chronywake's job with the current arguments, or removes it. Comes back on the main thread with a
    // sentence that says what went wrong, or an empty one.
    std::function<void(std::function<void(std::string sentence)> done)> install_or_remove_wake;
    // Runs chronywake once. Comes back on the main thread with its answer, "200 OK" when all went well.
    std::function<void(std::function<void(std::string reply)> done)> run_chronywake;
    // Has the installed daemon adjust the clock or leave it alone, as the record says. Comes back on the main thread:
    // whether it is done, and a sentence when there is something to say.
    std::function<void(std::function<void(bool done, const std::string& sentence)> done)> adjust_clock = {};
    std::string version; // of the program
};

} // namespace tickervantage
