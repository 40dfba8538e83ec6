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
    QKeySequence shortcut;
};

/* TRANSLATOR menus
   main window: menus and their items. The letter after an ampersand is the one that chooses the item together with Alt.
 */
const Item separator{nullptr, nullptr, {}};

// QT_TRANSLATE_NOOP marks the texts for translators; tr above looks them up.
std::vector<Item> file_items() {
    return {
        {"openTrackingLog", QT_TRANSLATE_NOOP("menus", "&Open Tracking Log…"), QKeySequence::Open},
        {"liveTracking", QT_TRANSLATE_NOOP("menus", "&Live Tracking Graph"), QKeySequence(Qt::CTRL | Qt::Key_L)},
        separator,
        {"showConfigEditor", QT_TRANSLATE_NOOP("menus", "&Edit Configuration…"), QKeySequence(Qt::CTRL | Qt::Key_E)},
        {"newConfiguration", QT_TRANSLATE_NOOP("menus", "&New Configuration"), QKeySequence::New},
        {"openConfiguration", QT_TRANSLATE_NOOP("menus", "Open Con&figuration…"), {}},
        {"recentConfigurations", QT_TRANSLATE_NOOP("menus", "&Recent Configurations"), {}},
        separator,
        {"showPreferences", QT_TRANSLATE_NOOP("menus", "&Preferences…"), QKeySequence(Qt::CTRL | Qt::Key_Comma)},
        {"checkForUpdates", QT_TRANSLATE_NOOP("menus", "Check for &Updates…"), {}},
        separator,
        {"closeWindow", QT_TRANSLATE_NOOP("menus", "&Close Window"), QKeySequence::Close},
        {"quit", QT_TRANSLATE_NOOP("menus", "&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q)}};
}

std::vector<Item> view_items() {
    return {{"refresh", QT_TRANSLATE_NOOP("menus", "&Refresh"), QKeySequence::Refresh},
            separator,
            {"showReport", QT_TRANSLATE_NOOP("menus", "chronyc's R&eport"), QKeySequence(Qt::CTRL | Qt::Key_R)},
            {"separateReport", QT_TRANSLATE_NOOP("menus", "Report in a &Window of Its Own"), {}},
            separator,
            {"chooseFont", QT_TRANSLATE_NOOP("menus", "Output &Font…"), {}},
            {"defaultFont", QT_TRANSLATE_NOOP("menus", "&Default Output Font"), {}},
            separator,
            {"showLogs", QT_TRANSLATE_NOOP("menus", "Reveal &chrony's Logs"), {}},
            {"showLogFile", QT_TRANSLATE_NOOP("menus", "Show the Program's &Log"), {}},
            {"showLogFolder", QT_TRANSLATE_NOOP("menus", "Reveal the Program's Log F&older"), {}}};
}

std::vector<Item> action_items() {
    return {{"installChrony", QT_TRANSLATE_NOOP("menus", "&Install chrony"), {}},
            {"uninstallChrony", QT_TRANSLATE_NOOP("menus", "&Uninstall chrony…"), {}},
            separator,
            {"startChrony", QT_TRANSLATE_NOOP("menus", "&Start chronyd"), {}},
            {"stopChrony", QT_TRANSLATE_NOOP("menus", "S&top chronyd"), {}},
            {"runChronywake", QT_TRANSLATE_NOOP("menus", "Run chrony&wake"), {}},
            separator,
            {"formerConfigurations", QT_TRANSLATE_NOOP("menus", "&Former Configurations…"), {}},
            {"rotateLogs", QT_TRANSLATE_NOOP("menus", "&Rotate Logs"), {}},
            {"synchServer", QT_TRANSLATE_NOOP("menus", "S&ynchronise Now…"), {}},
            {"stepTime", QT_TRANSLATE_NOOP("menus", "Step the &Clock…"), {}}};
}

std::vector<Item> window_items() {
    return {
        {"showTickervantage", QT_TRANSLATE_NOOP("menus", "&Main Window"), QKeySequence(Qt::CTRL | Qt::Key_1)},
        {"showServers", QT_TRANSLATE_NOOP("menus", "&Servers"), QKeySequence(Qt::CTRL | Qt::Key_2)},
        {"showFreqTemp", QT_TRANSLATE_NOOP("menus", "&Frequency and Temperature"), QKeySequence(Qt::CTRL | Qt::Key_3)},
        {"showFreqInspector", QT_TRANSLATE_NOOP("menus", "Sensor &Inspector"), QKeySequence(Qt::CTRL | Qt::Key_4)},
        {"showSpectrum", QT_TRANSLATE_NOOP("menus", "S&pectrum"), QKeySequence(Qt::CTRL | Qt::Key_5)}};
}

std::vector<Item> help_items() {
    return {{"helpFirstUse", QT_TRANSLATE_NOOP("menus", "&First Steps"), QKeySequence::HelpContents},
            {"helpWindows", QT_TRANSLATE_NOOP("menus", "The W&indows"), {}},
            {"helpFAQ", QT_TRANSLATE_NOOP("menus", "&Questions and Answers"), {}},
            separator,
            {"helpChronyConf", QT_TRANSLATE_NOOP("menus", "chrony.&conf"), {}},
            {"helpChronyc", QT_TRANSLATE_NOOP("menus", "c&hronyc"), {}},
            {"helpChronyd", QT_TRANSLATE_NOOP("menus", "chrony&d"), {}},
            {"helpChronywake", QT_TRANSLATE_NOOP("menus", "chrony&wake"), {}},
            separator,
            {"siteTickervantage", QT_TRANSLATE_NOOP("menus", "&Tickervantage on the Web"), {}},
            {"siteChrony", QT_TRANSLATE_NOOP("menus", "ch&rony on the Web"), {}},
            {"showDonate", QT_TRANSLATE_NOOP("menus", "D&onate…"), {}},
            separator,
            {"showAbout", QT_TRANSLATE_NOOP("menus", "&About Tickervantage"), {}}};
}

void add_item(QMenu* menu, const Item& item, ApplicationMenus& menus) {
    QAction* action = menu->addAction(Texts::tr(item.text));
    action->setObjectName(QLatin1String(item.name));
    action->setShortcut(item.shortcut);
    action->setEnabled(false);
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
    action->setToolTip({});
    action->setVisible(true);
    return action;
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
    menus.m_windows = add(Texts::tr("&Window"), window_items());
    add(Texts::tr("&Help"), help_items());
    menus.m_frequency_item = menus.actions.at("showFreqTemp");
    menus.m_spectrum_item = menus.actions.at("showSpectrum");
    menus.m_action->setObjectName(QStringLiteral("m_action"));
    menus.m_frequency_item->setObjectName(QStringLiteral("m_frequency_item"));
    menus.m_spectrum_item->setObjectName(QStringLiteral("m_spectrum_item"));
    return menus;
}

} // namespace tickervantage
