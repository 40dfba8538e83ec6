// The server list and the preferences: one window each, made on first use and kept, with what was not saved yet.
#pragma once

#include "base/logger.h"
#include "base/path_probes.h"
#include "base/paths.h"
#include "base/user_files.h"
#include "gui/preferences/preferences_window.h"
#include "gui/servers/servers_window.h"

#include <QObject>

#include <memory>

namespace tickervantage {

class AdministrativeJobs;
class ConfigWindows;

// All of it outlives the windows.
struct SettingsWindowsParts {
    DefaultSettings& settings;
    MainThread& main_thread;
    DispatchQueueSerial& queue;
    Logger& logger;
    const Paths& paths;
    WarningRegister& warnings;
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    PathProbes& probes;
    Files& files;
    ConfigWindows& editors;
    AdministrativeJobs* jobs = nullptr; // none: what needs them is not offered
    bool has_fixed_paths = false;       // chrony's, in a demonstration
    std::shared_ptr<const UserService> history_service = {};
};

class SettingsWindows : public QObject {
    Q_OBJECT
public:
    explicit SettingsWindows(SettingsWindowsParts parts);
    ~SettingsWindows() override;
    SettingsWindows(const SettingsWindows&) = delete;
    SettingsWindows& operator=(const SettingsWindows&) = delete;

    void showServers();
    void showPreferences(Preferences::Pane pane);

    // The records of the preferences are others now.
    void show_records();

    // Waits for the disk: for the program's end. False when the server list or the file for launch at login could not
    // be written in time.
    [[nodiscard]] bool finish();

Q_SIGNALS:
    // By the user, in the preferences' records. The third asks for those that are right for this machine.
    void general_changed();
    void watch_changed();
    void advanced_changed();
    void defaults_wanted();
    void daemon_changed(); // by a job

private:
    void make_servers();
    void make_preferences();
    void serve_wishes(PreferencesGeneralPane& pane); // that jobs fulfil

    SettingsWindowsParts m_parts;
    std::unique_ptr<ServersWindow> m_servers;
    std::unique_ptr<Preferences> m_preferences;
};

} // namespace tickervantage
