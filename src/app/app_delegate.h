// The application: launch order, menu actions, shutdown order. Main thread only.
#pragma once

#include "app/administration.h"
#include "app/demonstration_menu.h"
#include "app/history_offer.h"
#include "base/background.h"
#include "base/logger.h"
#include "base/path_probes.h"
#include "base/paths.h"
#include "base/user_files.h"
#include "chrony/status/status_cycle.h"
#include "gui/editor/config_editor_window.h"
#include "settings/preferences.h"
#include "settings/warning_register.h"
#include "studies/freqtemp/freqtemp_session.h"

#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class AnalysisWindows;
class ConfigWindows;
class DaemonMenu;
class FollowedFiles;
class HelpWindows;
class Mender;
class OpenedFiles;
class QueueLender;
class SettingsWindows;
class TickervantageWindow;
class TrendFeed;
class Notifier;
class Watcher;
class WindowMenus;

// What the application is made of; all of it outlives the delegate.
struct ApplicationParts {
    StatusCycleParts cycle;
    std::shared_ptr<PrivilegedActions> actions;
    JobMachine& machine;                 // on its queues
    DispatchQueueSerial& removal_queue;  // "net.brisklane.removetuxfamily"
    FollowedFiles& files;                // logs
    DispatchQueueSerial& spectrum_queue; // transforms
    DispatchQueueSerial& config_queue;   // "net.brisklane.config": checks, documents
    DispatchQueueSerial& export_queue;   // files that people ask for
    FreqTempParts freqtemp;              // frequency against temperature
    DispatchQueueSerial& list_queue;     // the server list, the preferences' paths
    DispatchQueueSerial& help_queue;     // help pages: reading, rendering, searching
    DispatchQueueSerial& history_queue;  // the history of the clock
    DispatchQueueSerial& trend_queue;    // the last hour of the history
    QueueLender& log_queues;             // one for each log that is followed
    Logger& logger;
    Paths paths;
    PathProbes& probes;
    Files& documents;
    Notifier* notifier = nullptr;    // none: alarms are told in the window only
    JobQueues* job_queues = nullptr; // none: jobs that need rights are not offered
};

// What differs in demonstration mode; empty for the machine's own daemon.
struct DaemonChoice {
    std::vector<std::string> chronyc_arguments;
    QString standing_notice;
    std::string tracking_log;  // empty: in the folder that chrony.conf names
    std::string configuration; // empty: that of the preferences
    std::string user = {};     // as whom chronyd runs, whatever the configuration says
    DemonstrationControl control = {};
};

class AppDelegate : public QObject {
    Q_OBJECT

public:
    AppDelegate(ApplicationParts parts, DaemonChoice daemon);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    [[nodiscard]] TickervantageWindow& main_window(); // made on first use
    [[nodiscard]] const ApplicationMenus& menus() const { return m_menus; }

    // Another process has changed the settings: the windows follow.
    void settings_changed();

    // Told by the shared actions.
    void show_problem(PrivilegedProblem problem, const Failure& why);

    // The program was started once more: the main window comes up, and what was named in windows of their own.
    void come_to_front(const QStringList& files);

    // Finished tracking logs and configurations, each in a window of its own.
    void open_files(const QStringList& files);
    void open_log(const QString& path);

    // Shows or hides the items of the two optional windows, as the preferences have it.
    void update_optional_items() const;

    // Says the sentence to the user and ends the program with exit status 1.
    void stop_program(const QString& sentence);
    [[nodiscard]] bool is_stopping() const { return m_stopping; }

private:
    void connect_items();
    void connect_log_items();
    [[nodiscard]] ChronyPaths usual_paths() const;
    [[nodiscard]] StatusCycleOptions cycle_options();
    void make_history();
    void when_painted();
    void make_main_window();
    void fill_toolbar();
    void connect_main_window();
    void build_recent_menus();
    void make_opened_files();
    void showTickervantage();
    void openTrackingLog();
    void liveTracking();
    void showHistory();
    void showLaboratory();
    void showLogs();
    template <class Use>
    void with_log_folder(Use use); // chrony's, empty where it names none
    [[nodiscard]] AnalysisWindows& analysis();
    void make_analysis();
    [[nodiscard]] ConfigWindows& configurations();
    void make_configurations();
    [[nodiscard]] SettingsWindows& settings_windows();
    void make_settings_windows();
    void make_administration();
    void make_trend_and_mender();
    void leave_demonstration();
    [[nodiscard]] std::string history_file() const; // empty: none
    void make_watcher();
    void make_help();
    void make_demonstration_menu();
    void make_history_offer();
    void install_configuration(ConfigEditor* editor, const QString& text);
    void install_in_demonstration(ConfigEditor* editor, const std::string& text);
    void launchMeridianox();
    void complain(const QString& sentence);                    // of a failure
    void say(const QString& sentence, QMessageBox::Icon icon); // with one "Dismiss" button
    void log_change_of_state(const StatusNotice& notice);

    ApplicationParts m_parts;
    DaemonChoice m_daemon;
    PreferencesGeneral m_general;
    PreferencesAdvanced m_advanced;
    WarningRegister m_warnings;
    ApplicationMenus m_menus;
    std::optional<chronydStatus> m_logged_status;
    bool m_stopping = false;
    Background m_background;
    std::shared_ptr<const UserService> m_history_service; // none in a demonstration
    std::unique_ptr<WindowHistory> m_history;             // outlives the window
    std::unique_ptr<Administration> m_administration;     // outlives the windows that use it
    std::unique_ptr<TickervantageWindow> m_main_window;
    std::unique_ptr<TrendFeed> m_trend;
    std::unique_ptr<Mender> m_mender;
    std::unique_ptr<Watcher> m_watcher;
    std::unique_ptr<AnalysisWindows> m_analysis;
    std::unique_ptr<ConfigWindows> m_configurations;
    std::unique_ptr<SettingsWindows> m_settings_windows;
    std::unique_ptr<HelpWindows> m_help;
    std::unique_ptr<WindowMenus> m_window_menus;
    std::unique_ptr<OpenedFiles> m_opened_files;
    std::unique_ptr<DemonstrationMenu> m_demonstration_menu;
    std::unique_ptr<DaemonMenu> m_daemon_menu;
    std::unique_ptr<HistoryOffer> m_history_offer;
};

} // namespace tickervantage
