#include "app/screenshot_tour.h"

#include "app/about_box.h"
#include "app/app_delegate.h"
#include "gui/main/tickervantage_window.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleFactory>
#include <QTableView>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <utility>

namespace tickervantage {
namespace {

constexpr int patience_in_readings = 20; // one a second: a demonstration daemon is synchronised long before

QPalette dark_palette() {
    QPalette palette(QColor(0x2b, 0x2d, 0x30), QColor(0x2b, 0x2d, 0x30));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2d, 0x30));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3f, 0x41));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText})
        palette.setColor(role, QColor(0xe6, 0xe6, 0xe6));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x8c, 0x8c, 0x8c));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

ScreenshotTour::ScreenshotTour(AppDelegate& application, QString folder)
    : m_application(application), m_folder(std::move(folder)) {}

void ScreenshotTour::start() {
    plan();
    plan_analysis();
    plan_settings();
    plan_editor();
    auto& window = m_application.main_window();
    connect(&window, &TickervantageWindow::reading_applied, this, &ScreenshotTour::reading_applied,
            Qt::QueuedConnection); // laid out first
    window.cycle().intervalChanged(1);
}

void ScreenshotTour::plan() {
    auto& window = m_application.main_window();
    // As a person would: through the menu.
    const auto command = [menu = window.findChild<QComboBox*>(QStringLiteral("commandMenu"))](const char* title) {
        menu->setCurrentText(QLatin1String(title));
        Q_EMIT menu->textActivated(menu->currentText());
    };
    const auto trigger = [this, &window](const char* action) {
        m_application.menus().actions.at(action)->trigger();
        window.cycle().refresh();
    };
    m_stops = {
        {QStringLiteral("main-window"),
         [this, command] {
             show_dark(false);
             command("tracking");
         }},
        {QStringLiteral("main-window-sources"),
         [command] {
             command("sources -v");
         }},
        {QStringLiteral("main-window-root-report"),
         [command] {
             command("ntpdata");
         }},
        {QStringLiteral("main-window-explained"),
         [&window, command] {
             window.findChild<QPushButton*>(QStringLiteral("explain_verdict"))->click();
             window.findChild<QPushButton*>(QStringLiteral("ask_root_reports"))->click();
             command("activity");
         }},
        {QStringLiteral("main-window-dark"),
         [this, &window, command] {
             show_dark(true), command("tracking");
             if (auto* sources = window.findChild<QTableView*>(QStringLiteral("sources")))
                 sources->selectRow(0);
         }},
        {QStringLiteral("main-window-large"),
         [this, &window, command] {
             show_dark(false);
             window.resize(1900, 1150);
             command("sourcestats");
         }},
        {QStringLiteral("main-window-large-dark"),
         [this, command] {
             show_dark(true);
             command("sources");
         }},
        {QStringLiteral("main-window-without-report"),
         [this, &window, trigger] {
             show_dark(false);
             window.resize(1240, 860);
             trigger("showReport");
         }},
        {QStringLiteral("report-apart"), [trigger] { trigger("separateReport"); }, QStringLiteral("ReportWindow")},
        {QStringLiteral("main-window-small"),
         [&window, command, trigger] {
             trigger("separateReport");
             window.resize(640, 480);
             command("sourcestats -v");
         }},
        {QStringLiteral("main-window-small-scrolled"),
         [&window, command] {
             window.findChild<QScrollArea*>(QStringLiteral("main_area"))->ensureVisible(0, INT_MAX);
             command("sourcestats");
         }},
    };
}

void ScreenshotTour::plan_analysis() {
    const auto trigger = [this](const char* action) {
        m_application.menus().actions.at(action)->trigger();
    };
    const auto refresh = [this] {
        m_application.main_window().cycle().refresh();
    };
    const QString tracking = QStringLiteral("TrackingWindow");
    if (window_of({{}, {}, tracking}) == nullptr)
        trigger("liveTracking");
    const auto show = [trigger, refresh](const char* action) {
        return [trigger, refresh, action] {
            trigger(action);
            refresh();
        };
    };
    const QString history = QStringLiteral("HistoryWindow");
    const auto has_data = [](const QWidget& window) {
        return window.findChild<QAction*>(QStringLiteral("export_action"))->isEnabled() &&
               window.findChild<QTreeWidget*>(QStringLiteral("statistics"))->topLevelItemCount() > 0;
    };
    m_stops.push_back({QStringLiteral("history"), show("showHistory"), history, has_data});
    m_stops.push_back(
        {QStringLiteral("history-dark"), [this, refresh] { show_dark(true), refresh(); }, history, has_data});
    const QString laboratory = QStringLiteral("LaboratoryWindow");
    const auto has_chart = [](const QWidget& window) {
        const auto* page = window.findChild<QTabWidget*>(QStringLiteral("pages"))->currentWidget();
        const auto* action = page->findChild<QAction*>(QStringLiteral("export_action"));
        return action == nullptr || action->isEnabled();
    };
    const auto has_figures = [](const QWidget& window) {
        return window.findChild<QTreeWidget*>(QStringLiteral("compensation_figures"))->topLevelItemCount() > 0;
    };
    const auto turn_to = [this, laboratory, refresh](int page, bool dark) {
        return [this, laboratory, refresh, page, dark] {
            show_dark(dark);
            if (auto* window = window_of({{}, {}, laboratory}))
                window->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(page);
            refresh();
        };
    };
    m_stops.push_back({QStringLiteral("laboratory-stability"),
                       [turn_to, show] {
                           show("showLaboratory")();
                           turn_to(0, false)();
                       },
                       laboratory, has_chart});
    m_stops.push_back({QStringLiteral("laboratory-holdover"), turn_to(1, false), laboratory, has_chart});
    m_stops.push_back({QStringLiteral("laboratory-compensation"), turn_to(2, false), laboratory, has_figures});
    m_stops.push_back({QStringLiteral("laboratory-periodogram"), turn_to(3, false), laboratory, has_chart});
    m_stops.push_back({QStringLiteral("laboratory-periodogram-dark"), turn_to(3, true), laboratory, has_chart});
    const auto open_legend = [this, tracking, refresh] {
        if (auto* window = window_of({{}, {}, tracking}))
            window->findChild<QPushButton*>(QStringLiteral("showLegend"))->click();
        refresh();
    };
    m_stops.push_back({QStringLiteral("tracking"), [this, refresh] { show_dark(false), refresh(); }, tracking});
    m_stops.push_back({QStringLiteral("tracking-legend"), open_legend, tracking});
    m_stops.push_back(
        {QStringLiteral("tracking-dark"), [this, open_legend] { show_dark(true), open_legend(); }, tracking});
    m_stops.push_back({QStringLiteral("spectrum"),
                       [this, trigger, refresh] {
                           show_dark(false);
                           trigger("showSpectrum");
                           refresh();
                       },
                       QStringLiteral("SpectrumWindow")});
    const auto has_points = [](const QWidget& window) {
        return window.findChild<QPushButton*>(QStringLiteral("export"))->isEnabled();
    };
    m_stops.push_back(
        {QStringLiteral("frequency-temperature"), show("showFreqTemp"), QStringLiteral("FreqTempWindow"), has_points});
    m_stops.push_back(
        {QStringLiteral("sensor-inspector"), show("showFreqInspector"), QStringLiteral("SensorInspector")});
}

void ScreenshotTour::plan_settings() {
    const QString servers = QStringLiteral("ServersWindow");
    const QString preferences = QStringLiteral("Preferences");
    const auto show = [this](bool dark, const char* action) {
        show_dark(dark);
        m_application.menus().actions.at(action)->trigger();
        m_application.main_window().cycle().refresh();
    };
    const auto show_pane = [this, preferences, show](bool dark, int pane) {
        show(dark, "showPreferences");
        if (auto* window = window_of({{}, {}, preferences}))
            window->findChild<QTabWidget*>(QStringLiteral("m_window"))->setCurrentIndex(pane);
    };
    const auto type_nonsense = [this, servers, show] {
        show(true, "showServers");
        auto* window = window_of({{}, {}, servers});
        auto* field = window != nullptr ? window->findChild<QLineEdit*>(QStringLiteral("m_name")) : nullptr;
        if (field == nullptr)
            return;
        field->setText(QStringLiteral("2001:db8::7"));
        Q_EMIT field->textEdited(field->text());
    };
    m_stops.push_back({QStringLiteral("servers"), [show] { show(false, "showServers"); }, servers});
    m_stops.push_back({QStringLiteral("servers-dark-refused"), type_nonsense, servers});
    m_stops.push_back({QStringLiteral("preferences-general"), [show_pane] { show_pane(false, 0); }, preferences});
    m_stops.push_back({QStringLiteral("preferences-general-dark"), [show_pane] { show_pane(true, 0); }, preferences});
    m_stops.push_back({QStringLiteral("preferences-advanced"), [show_pane] { show_pane(false, 1); }, preferences});
    m_stops.push_back({QStringLiteral("help"), [show] { show(false, "helpFirstUse"); }, QStringLiteral("HelpViewer")});
    m_stops.push_back(
        {QStringLiteral("help-dark"), [show] { show(true, "helpChronyConf"); }, QStringLiteral("HelpViewer")});
    m_stops.push_back({QStringLiteral("preferences-updates"), [show_pane] { show_pane(false, 2); }, preferences});
}

void ScreenshotTour::plan_editor() {
    const QString editor = QStringLiteral("ConfigEditor");
    const auto refresh = [this] {
        m_application.main_window().cycle().refresh();
    };
    const auto show_new = [this, refresh] {
        show_dark(false);
        m_application.menus().actions.at("newConfiguration")->trigger();
        refresh();
    };
    const auto show_error = [this, editor, refresh] {
        auto* window = window_of({{}, {}, editor});
        auto* text = window != nullptr ? window->findChild<QPlainTextEdit*>(QStringLiteral("m_config")) : nullptr;
        if (text == nullptr)
            return;
        text->insertPlainText(QStringLiteral("keyfile /no/such/keys\nserverr ntp.example.net\n"));
        window->findChild<QPushButton*>(QStringLiteral("m_checksyntax"))->click();
        refresh();
    };
    m_stops.push_back({QStringLiteral("editor"), show_new, editor});
    const auto is_checked = [](const QWidget& window) {
        return window.findChild<QPushButton*>(QStringLiteral("m_checksyntax"))->isEnabled();
    };
    m_stops.push_back({QStringLiteral("editor-error"), show_error, editor, is_checked});
    m_stops.push_back({QStringLiteral("editor-error-dark"), [this, refresh] { show_dark(true), refresh(); }, editor});
}

QWidget* ScreenshotTour::window_of(const Stop& stop) const {
    if (stop.window.isEmpty())
        return &m_application.main_window();
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, stop.window, &QWidget::objectName);
    return found == windows.end() ? nullptr : *found;
}

void ScreenshotTour::show_dark(bool dark) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(dark ? dark_palette() : QApplication::style()->standardPalette());
}

void ScreenshotTour::reading_applied() {
    if (m_touring) {
        take_picture();
        return;
    }
    const bool synchronised = m_application.main_window().cycle().status() == chronydStatus::synchronised;
    if (!synchronised && ++m_readings < patience_in_readings)
        return;
    if (!synchronised)
        std::fputs("The daemon is not synchronised; the pictures show it as it is.\n", stderr);
    m_touring = true;
    next_stop();
}

void ScreenshotTour::next_stop() {
    if (m_stops.empty()) {
        if (!std::exchange(m_ended, true))
            Q_EMIT finished(m_complete);
        return;
    }
    m_stops.front().prepare();
}

void ScreenshotTour::take_picture() {
    if (m_stops.empty())
        return;
    const Stop& stop = m_stops.front();
    QWidget* window = window_of(stop);
    if (window != nullptr && stop.is_ready != nullptr && !stop.is_ready(*window) && ++m_waits < patience_in_readings)
        return;
    const QString file = m_folder + QLatin1Char('/') + stop.file + QStringLiteral(".png");
    m_stops.pop_front();
    if (window == nullptr || !window->grab().save(file)) {
        std::fprintf(stderr, "The picture %s could not be written.\n", qUtf8Printable(file));
        m_complete = false;
    }
    next_stop();
}

} // namespace tickervantage
