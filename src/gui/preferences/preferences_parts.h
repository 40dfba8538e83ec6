// What the preferences window works with; all of it outlives the window, and the main thread outlives the queue.
#pragma once

#include "base/dispatch.h"
#include "base/launch_at_login.h"
#include "base/path_probes.h"
#include "base/user_service.h"
#include "settings/preferences.h"
#include "settings/warning_register.h"

#include <memory>
#include <string>

namespace tickervantage {

struct PreferencesParts {
    DefaultSettings& settings;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    WarningRegister& warnings;
    // The records that the whole program reads: every change in the window is in them at once.
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    PathProbes& probes;
    std::shared_ptr<const LaunchAtLogin> launch_at_login;
    std::shared_ptr<const UserService> history_service = {}; // keeps the history; none in a demonstration
    bool has_helper = false;      // somebody answers to what the General pane wants of chronywake and of the daemon
    bool has_fixed_paths = false; // those of a demonstration
    std::string version = {};     // of the program
};

} // namespace tickervantage
