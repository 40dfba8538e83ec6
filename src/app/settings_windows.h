// The server list and the preferences: one window each, made on first use and kept, with what was not saved yet.
#pragma once

#include "base/logger.h"
#include "base/paths.h"
#include "gui/preferences/preferences_window.h"
#include "gui/servers/servers_window.h"

#include <functional>
#include <memory>

namespace tickervantage {

// All of it outlives the windows. The functions may be missing.
struct SettingsWindowsParts {
    DefaultSettings& settings;
    MainThread& main_thread;
    DispatchQueueSerial& queue;
    Logger& logger;
    const Paths& paths;
    WarningRegister& warnings;
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    std::function<ChronyPaths()> usual_paths;
    std::function<void()> general_changed;
    std::function<void()> advanced_changed;
    std::function<bool()> editor_is_open;
    std::function<bool(const QString& lines)> insert_into_editor;
    std::function<void(std::function<void(std::string sentence)> done)> install_or_remove_wake;
    std::function<void(std::function<void(std::string reply)> done)> run_chronywake;
    std::function<void(std::function<void(bool done, const std::string& sentence)> done)> adjust_clock = {};
};

class SettingsWindows {
public:
    explicit SettingsWindows(SettingsWindowsParts parts);
    ~SettingsWindows();
    SettingsWindows(const SettingsWindows&) = delete;
    SettingsWindows& operator=(const SettingsWindows&) = delete;

    void showServers();
    void showPreferences(Preferences::Pane pane);

    // The records of the preferences are others now.
    void show_records();

    // Waits for the disk: for the program's end. False when the server list or the file for launch at login could not
    // be written in time.
    [[nodiscard]] bool finish();

private:
    [[nodiscard]] ServersWindowParts servers_parts();
    [[nodiscard]] PreferencesParts preferences_parts();

    SettingsWindowsParts m_parts;
    std::unique_ptr<ServersWindow> m_servers;
    std::unique_ptr<Preferences> m_preferences;
};

} // namespace tickervantage
