// The application: launch order, menu actions, shutdown order. Main thread only.
#pragma once

#include "app/application_menus_window.h"
#include "config/preferences.h"
#include "mainwindow/status_cycle.h"
#include "platform/logger.h"
#include "platform/paths.h"
#include "privileged/old_installation.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class TickervantageWindow;

// What the application is made of; all of it outlives the delegate.
struct ApplicationParts {
    StatusCycleParts cycle;
    std::shared_ptr<PrivilegedActions> actions;
    DispatchQueueSerial& removal_queue; // "net.brisklane.removetuxfamily"
    OldInstallationRemoval old_installation;
    Logger& logger;
    std::function<void()> close_log;
    Paths paths;
};

// What differs in demonstration mode; empty for the machine's own daemon.
struct DaemonChoice {
    std::vector<std::string> chronyc_arguments;
    std::string pidfile;
    QString standing_notice;
};

class AppDelegate {
public:
    AppDelegate(ApplicationParts parts, DaemonChoice daemon);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    void applicationDidFinishLaunching();
    void applicationWillTerminate();

    [[nodiscard]] TickervantageWindow& main_window(); // made on first use
    [[nodiscard]] const ApplicationMenus& menus() const { return m_menus; }

    // Shows or hides the items of the two optional windows, as the preferences have it.
    void update_optional_items() const;

    // Says the sentence to the user and ends the program with exit status 1.
    void stop_program(const QString& sentence);
    [[nodiscard]] bool is_stopping() const { return m_stopping; }

private:
    [[nodiscard]] MenuHandlers menu_handlers();
    [[nodiscard]] StatusCycleOptions cycle_options();
    void make_main_window();
    void showTickervantage();
    void launchMeridianox();
    void say(const QString& sentence); // a failure, with one "Dismiss" button
    void log_change_of_state(const StatusNotice& notice);

    ApplicationParts m_parts;
    DaemonChoice m_daemon;
    PreferencesGeneral m_general;
    PreferencesAdvanced m_advanced;
    ApplicationMenus m_menus;
    std::optional<chronydStatus> m_logged_status;
    bool m_stopping = false;
    std::unique_ptr<TickervantageWindow> m_main_window;
};

} // namespace tickervantage
