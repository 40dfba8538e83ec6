// The menu Daemon: whose clock the main window shows, this machine's or that of one in the user's list. While it is
// another machine's, what would change this one cannot be chosen, and says why. Main thread.
#pragma once

#include "app/application_menus.h"
#include "settings/default_settings.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

class QActionGroup;

namespace tickervantage {

class TickervantageWindow;

class DaemonMenu : public QObject {
    Q_OBJECT

public:
    // All live longer; the window makes the menus.
    DaemonMenu(DefaultSettings& settings, TickervantageWindow& window, ApplicationMenus menus);
    ~DaemonMenu() override;

private:
    struct State {
        bool is_enabled;
        QString tooltip;
    };

    void list();
    void add(const QString& text, const QString& host);
    void edit();
    void follow(const QString& host);
    void forbid_changes();
    [[nodiscard]] QStringList hosts() const;

    DefaultSettings& m_settings;
    TickervantageWindow& m_window;
    ApplicationMenus m_menus;
    std::unique_ptr<QActionGroup> m_choice; // one of the machines
    QString m_shown;                        // empty: this machine
    std::map<QAction*, State> m_before;     // what cannot be chosen now, as it was
};

} // namespace tickervantage
