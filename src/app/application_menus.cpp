#include "app/application_menus.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <vector>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(menus)
};

struct Item {
    const char* name; // null: a separator
    const char* text;
    const char* icon; // its name in the desktop's themes; null: none
    QKeySequence shortcut;
    const char* tip = nullptr; // what it does, where the text alone does not say it
};

constexpr const char* tip_of_item = "tip";
constexpr const char* icon_of_item = "nameOfIcon";

/* TRANSLATOR menus
   main window: menus and their items. The letter after an ampersand is the one that chooses the item together with Alt.
 */
const Item separator{nullptr, nullptr, nullptr, {}};

// QT_TRANSLATE_NOOP marks the texts for translators; tr above looks them up.
std::vector<Item> file_items() {
    return {{"openTrackingLog", QT_TRANSLATE_NOOP("menus", "&Open Tracking Log…"), "document-open", QKeySequence::Open},
            {"recentLogs", QT_TRANSLATE_NOOP("menus", "Recent Tracking Logs"), "document-open-recent", {}},
            {"liveTracking", QT_TRANSLATE_NOOP("menus", "&Live Tracking Graph"), "utilities-system-monitor",
             QKeySequence(Qt::CTRL | Qt::Key_L)},
            separator,
            {"showConfigEditor", QT_TRANSLATE_NOOP("menus", "&Edit Configuration…"), "accessories-text-editor",
             QKeySequence(Qt::CTRL | Qt::Key_E)},
            {"newConfiguration", QT_TRANSLATE_NOOP("menus", "&New Configuration"), "document-new", QKeySequence::New},
            {"openConfiguration", QT_TRANSLATE_NOOP("menus", "Open Con&figuration…"), "document-open", {}},
            {"recentConfigurations", QT_TRANSLATE_NOOP("menus", "&Recent Configurations"), "document-open-recent", {}},
            separator,
            {"showPreferences", QT_TRANSLATE_NOOP("menus", "&Preferences…"), "preferences-system",
             QKeySequence(Qt::CTRL | Qt::Key_Comma)},
            {"checkForUpdates", QT_TRANSLATE_NOOP("menus", "Check for &Updates…"), "system-software-update", {}},
            separator,
            {"closeWindow", QT_TRANSLATE_NOOP("menus", "&Close Window"), "window-close", QKeySequence::Close},
            {"quit", QT_TRANSLATE_NOOP("menus", "&Quit"), "application-exit", QKeySequence(Qt::CTRL | Qt::Key_Q)}};
}

std::vector<Item> view_items() {
    return {
        {"refresh", QT_TRANSLATE_NOOP("menus", "&Refresh"), "view-refresh", QKeySequence::Refresh},
        separator,
        {"showReport", QT_TRANSLATE_NOOP("menus", "chronyc's R&eport"), nullptr, QKeySequence(Qt::CTRL | Qt::Key_R)},
        {"separateReport", QT_TRANSLATE_NOOP("menus", "Report in a &Window of Its Own"), nullptr, {}},
        separator,
        {"chooseFont", QT_TRANSLATE_NOOP("menus", "Output &Font…"), "preferences-desktop-font", {}},
        {"defaultFont", QT_TRANSLATE_NOOP("menus", "&Default Output Font"), nullptr, {}},
        separator,
        {"showLogs", QT_TRANSLATE_NOOP("menus", "Open &chrony's Log Folder"), "folder", {}},
        {"showLogFile", QT_TRANSLATE_NOOP("menus", "Show the Program's &Log"), "text-x-generic", {}},
        {"showLogFolder", QT_TRANSLATE_NOOP("menus", "Open the Program's Log F&older"), "folder", {}}};
}

std::vector<Item> action_items() {
    return {{"installChrony",
             QT_TRANSLATE_NOOP("menus", "&Install chrony"),
             "package-x-generic",
             {},
             QT_TRANSLATE_NOOP("menus", "Copies chrony's programs and services to this computer, and starts chronyd")},
            {"uninstallChrony",
             QT_TRANSLATE_NOOP("menus", "&Uninstall chrony…"),
             "edit-delete",
             {},
             QT_TRANSLATE_NOOP("menus", "Removes what was installed there; the configuration and the logs stay")},
            separator,
            {"startChrony",
             QT_TRANSLATE_NOOP("menus", "&Start chronyd"),
             "media-playback-start",
             {},
             QT_TRANSLATE_NOOP("menus", "Starts the service that keeps this clock right")},
            {"stopChrony",
             QT_TRANSLATE_NOOP("menus", "S&top chronyd"),
             "media-playback-stop",
             {},
             QT_TRANSLATE_NOOP("menus", "Stops that service: nothing keeps this clock right then")},
            {"runChronywake",
             QT_TRANSLATE_NOOP("menus", "Run chrony&wake"),
             "system-run",
             {},
             QT_TRANSLATE_NOOP("menus", "Corrects the clock, as it is done when the machine has slept")},
            separator,
            {"formerConfigurations",
             QT_TRANSLATE_NOOP("menus", "&Former Configurations…"),
             "document-revert",
             {},
             QT_TRANSLATE_NOOP("menus", "Compares the configurations that were installed before, and brings one back")},
            {"rotateLogs",
             QT_TRANSLATE_NOOP("menus", "&Rotate Logs"),
             "view-refresh",
             {},
             QT_TRANSLATE_NOOP("menus", "Sets chrony's log files aside under other names, and begins new ones")},
            {"synchServer",
             QT_TRANSLATE_NOOP("menus", "S&ynchronise Now…"),
             "emblem-synchronizing",
             {},
             QT_TRANSLATE_NOOP("menus", "Stops chronyd, sets the clock once by a server, and starts chronyd again")},
            {"stepTime",
             QT_TRANSLATE_NOOP("menus", "Step the &Clock…"),
             "appointment-soon",
             {},
             QT_TRANSLATE_NOOP("menus", "Sets the clock forward or back at once, by as many seconds as you say")}};
}

std::vector<Item> window_items() {
    return {
        {"showTickervantage", QT_TRANSLATE_NOOP("menus", "&Main Window"), "net.brisklane.tickervantage",
         QKeySequence(Qt::CTRL | Qt::Key_1)},
        {"showHistory", QT_TRANSLATE_NOOP("menus", "Histor&y of the Clock"), "document-open-recent",
         QKeySequence(Qt::CTRL | Qt::Key_H)},
        {"showLaboratory", QT_TRANSLATE_NOOP("menus", "Clock &Laboratory"), "laboratory",
         QKeySequence(Qt::CTRL | Qt::Key_B)},
        {"showServers", QT_TRANSLATE_NOOP("menus", "&Servers"), "network-server", QKeySequence(Qt::CTRL | Qt::Key_2)},
        {"showFreqTemp", QT_TRANSLATE_NOOP("menus", "&Frequency and Temperature"), "temperature",
         QKeySequence(Qt::CTRL | Qt::Key_3)},
        {"showFreqInspector", QT_TRANSLATE_NOOP("menus", "Sensor &Inspector"), "document-properties",
         QKeySequence(Qt::CTRL | Qt::Key_4)},
        {"showSpectrum", QT_TRANSLATE_NOOP("menus", "S&pectrum"), "office-chart-bar",
         QKeySequence(Qt::CTRL | Qt::Key_5)}};
}

std::vector<Item> help_items() {
    return {{"helpFirstUse", QT_TRANSLATE_NOOP("menus", "&First Steps"), "help-contents", QKeySequence::HelpContents},
            {"helpWindows", QT_TRANSLATE_NOOP("menus", "The W&indows"), nullptr, {}},
            {"helpFAQ", QT_TRANSLATE_NOOP("menus", "&Questions and Answers"), "help-faq", {}},
            separator,
            {"helpChronyConf", QT_TRANSLATE_NOOP("menus", "chrony.&conf"), nullptr, {}},
            {"helpChronyc", QT_TRANSLATE_NOOP("menus", "c&hronyc"), nullptr, {}},
            {"helpChronyd", QT_TRANSLATE_NOOP("menus", "chrony&d"), nullptr, {}},
            {"helpChronywake", QT_TRANSLATE_NOOP("menus", "chrony&wake"), nullptr, {}},
            separator,
            {"siteTickervantage", QT_TRANSLATE_NOOP("menus", "&Tickervantage on the Web"), "applications-internet", {}},
            {"siteChrony", QT_TRANSLATE_NOOP("menus", "ch&rony on the Web"), "applications-internet", {}},
            {"showDonate", QT_TRANSLATE_NOOP("menus", "D&onate…"), nullptr, {}},
            separator,
            {"showAbout", QT_TRANSLATE_NOOP("menus", "&About Tickervantage"), "help-about", {}}};
}

void add_item(QMenu* menu, const Item& item, ApplicationMenus& menus) {
    QAction* action = menu->addAction(Texts::tr(item.text));
    action->setObjectName(QLatin1String(item.name));
    action->setShortcut(item.shortcut);
    action->setProperty(icon_of_item, QLatin1String(item.icon));
    action->setEnabled(false);
    action->setProperty(tip_of_item, item.tip == nullptr ? QString() : Texts::tr(item.tip));
    //: tooltip of a menu item that cannot be used
    action->setToolTip(Texts::tr("Not part of this version"));
    action->setVisible(QLatin1String(item.name) != QLatin1String("showDonate")); // it comes with its resource alone
    menus.actions[item.name] = action;
}

QMenu* add_menu(QMainWindow* window, const QString& title, const std::vector<Item>& items, ApplicationMenus& menus) {
    QMenu* menu = window->menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    for (const auto& item : items) {
        if (item.name == nullptr)
            menu->addSeparator();
        else
            add_item(menu, item, menus);
    }
    return menu;
}

} // namespace

QAction* ApplicationMenus::offer(const char* name) const {
    QAction* action = actions.at(name);
    action->setEnabled(true);
    action->setToolTip(action->property(tip_of_item).toString());
    action->setVisible(true);
    return action;
}

void ApplicationMenus::find_icon(QAction& action) {
    const QString name = action.property(icon_of_item).toString();
    if (!name.isEmpty() && action.icon().isNull())
        action.setIcon(QIcon::fromTheme(name));
}

void ApplicationMenus::find_icons() const {
    for (const auto& [name, action] : actions)
        find_icon(*action);
}

ApplicationMenus build_application_menus(QMainWindow* window) {
    ApplicationMenus menus;
    const auto add = [window, &menus](const QString& title, const std::vector<Item>& items) {
        return add_menu(window, title, items, menus);
    };
    //: titles of the menus
    add(Texts::tr("&File"), file_items());
    add(Texts::tr("&View"), view_items());
    menus.m_action = add(Texts::tr("&Chrony"), action_items());
    menus.m_daemon = add(Texts::tr("Dae&mon"), {});
    menus.m_windows = add(Texts::tr("&Window"), window_items());
    add(Texts::tr("&Help"), help_items());
    menus.m_frequency_item = menus.actions.at("showFreqTemp");
    menus.m_spectrum_item = menus.actions.at("showSpectrum");
    menus.m_action->setObjectName(QStringLiteral("m_action"));
    menus.m_daemon->setObjectName(QStringLiteral("daemon"));
    menus.m_frequency_item->setObjectName(QStringLiteral("m_frequency_item"));
    menus.m_spectrum_item->setObjectName(QStringLiteral("m_spectrum_item"));
    return menus;
}

} // namespace tickervantage
