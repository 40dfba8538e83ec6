// Watches the clock while the program runs: what is wrong is told by one notification of the desktop, and an icon in
// its tray shows the verdict, so that the windows may be closed. Main thread.
#pragma once

#include "base/broadcast.h"
#include "base/notifier.h"
#include "chrony/truth/clock_truth.h"
#include "linux/boot_clock.h"
#include "settings/warning_register.h"
#include "watch/engine.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace tickervantage {

class TickervantageWindow;

// All of it lives longer.
struct WatcherParts {
    DefaultSettings& settings;
    Broadcast& broadcast;
    WarningRegister& warnings; // what is said once
    TickervantageWindow& window;
    Notifier* notifier = nullptr;                // null: nobody is told
    std::function<BootTime()> clock = boot_time; // the one that nobody sets
};

class Watcher : public QObject {
    Q_OBJECT

public:
    explicit Watcher(WatcherParts parts);
    ~Watcher() override;

    // The settings may be others now.
    void settings_changed();

    // Of what is raised now.
    void be_quiet();

    // Whether the program goes on when its last window is closed.
    [[nodiscard]] bool keeps_running() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QString alarm_words() const; // what is raised and not quiet; empty: nothing
    void look(const ClockTruth& truth);
    void tell();
    void make_tray();
    void follow_tray();
    void show_tray(const ClockTruth& truth);
    void say_once_that_it_goes_on();

    WatcherParts m_parts;
    double m_asleep;
    WatchEngine m_engine;
    WatchObservation m_seen; // last
    bool m_is_told = false;  // a notification is shown
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_tray;
};

} // namespace tickervantage
