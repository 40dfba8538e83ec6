#include "app/daemon_menu.h"

#include "gui/main/hosts_dialog.h"
#include "gui/main/tickervantage_window.h"
#include "settings/settings_catalogue.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(daemonmenu)
};

} // namespace

DaemonMenu::DaemonMenu(DefaultSettings& settings, TickervantageWindow& window, ApplicationMenus menus)
    : m_settings(settings), m_window(window), m_menus(std::move(menus)) {
    list();
    connect(m_menus.m_daemon, &QMenu::aboutToShow, this, &DaemonMenu::list);           // the settings may be others now
    connect(m_menus.m_action, &QMenu::aboutToShow, this, &DaemonMenu::forbid_changes); // after those who allow them
    connect(&m_window, &TickervantageWindow::host_shown, this, &DaemonMenu::follow);
}

DaemonMenu::~DaemonMenu() = default;

QStringList DaemonMenu::hosts() const {
    QStringList hosts;
    for (const auto& host : load(m_settings, settings::daemon_hosts))
        if (const QString name = QString::fromStdString(host); is_daemon_host(name))
            hosts.append(name);
    if (!m_shown.isEmpty() && !hosts.contains(m_shown))
        hosts.append(m_shown); // it was taken off the list meanwhile
    return hosts;
}

void DaemonMenu::list() {
    m_menus.m_daemon->clear();
    m_choice = std::make_unique<QActionGroup>(nullptr);
    //: menu of the machines whose clock can be shown
    add(Texts::tr("This &Machine"), {});
    m_menus.m_daemon->addSeparator();
    const QStringList known = hosts();
    for (const auto& host : known)
        add(QString(host).replace(QLatin1Char('&'), QLatin1String("&&")), host);
    m_menus.m_daemon->addSeparator();
    //: menu of the machines whose clock can be shown: opens the list of them
    auto* edited = m_menus.m_daemon->addAction(Texts::tr("&Other Machines…"));
    edited->setObjectName(QStringLiteral("editHosts"));
    //: tooltip of that item
    edited->setToolTip(Texts::tr("Add machines whose clocks are to be shown here, or remove some"));
    connect(edited, &QAction::triggered, this, &DaemonMenu::edit);
}

void DaemonMenu::add(const QString& text, const QString& host) {
    auto* item = m_menus.m_daemon->addAction(text);
    item->setObjectName(host.isEmpty() ? QStringLiteral("thisMachine") : QLatin1String("host ") + host);
    //: tooltip of the item that shows this machine's clock again
    const QString own = Texts::tr("Show the clock of this machine");
    //: tooltip of an item with another machine
    const QString other = Texts::tr("Show the clock of that machine; nothing is changed there");
    item->setToolTip(host.isEmpty() ? own : other);
    item->setCheckable(true);
    item->setActionGroup(m_choice.get());
    item->setChecked(host == m_shown);
    connect(
        item, &QAction::triggered, &m_window, [this, host] { m_window.show_host(host); }, Qt::QueuedConnection);
}

void DaemonMenu::edit() {
    auto* dialog = new HostsDialog(hosts(), &m_window);
    connect(dialog, &HostsDialog::changed, this, [this](const QStringList& hosts) {
        std::vector<std::string> kept;
        for (const auto& host : hosts)
            kept.push_back(host.toStdString());
        save(m_settings, settings::daemon_hosts, kept);
        list();
    });
    connect(dialog, &HostsDialog::chosen, &m_window, &TickervantageWindow::show_host);
    dialog->open();
}

void DaemonMenu::follow(const QString& host) {
    for (const auto& [item, state] : m_before) {
        item->setEnabled(state.is_enabled);
        item->setToolTip(state.tooltip);
    }
    m_before.clear();
    m_shown = host;
    list();
    forbid_changes();
}

void DaemonMenu::forbid_changes() {
    if (m_shown.isEmpty())
        return;
    const QString words =
        //: tooltip of a menu item that cannot be used while another machine's clock is shown; %1 is that machine
        Texts::tr("The window shows %1, which is only read. Choose “This Machine” in the menu Daemon first.")
            .arg(m_shown);
    QList<QAction*> changing = m_menus.m_action->actions();
    changing.append(m_menus.actions.at("showConfigEditor"));
    for (auto* item : std::as_const(changing)) {
        if (item->isSeparator())
            continue;
        m_before.try_emplace(item, State{item->isEnabled(), item->toolTip()});
        item->setEnabled(false);
        item->setToolTip(words);
    }
}

} // namespace tickervantage
