#include "gui/main/tickervantage_window.h"

#include "gui/main/clock_widget.h"
#include "gui/main/command_output.h"
#include "gui/main/local_time_text.h"
#include "gui/main/main_area.h"
#include "gui/main/meter_widget.h"
#include "gui/main/notice_words.h"
#include "gui/main/report_pane.h"
#include "gui/main/sources_panel.h"
#include "gui/main/status_image.h"
#include "gui/main/trend_panel.h"
#include "gui/main/verdict_panel.h"
#include "qt/in_words.h"
#include "qt/local_number.h"
#include "qt/text_scale.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDataStream>
#include <QDateTime>
#include <QFontDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* frame_key = "frame_Tickervantage";
constexpr const char* layout_key = "layout_Tickervantage"; // of what is in the window

QString from_std(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QLayout* foot_of(const MainWindowControls& controls) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(12, 4, 12, 6);
    row->setSpacing(16);
    row->addWidget(controls.m_status, 1);
    row->addWidget(controls.chronycversion);
    row->addWidget(controls.chronydversion);
    return row;
}

} // namespace

TickervantageWindow::TickervantageWindow(const StatusCycleParts& parts, StatusCycleOptions options)
    : m_settings_store(parts.settings), m_cycle(std::make_unique<StatusCycle>(*this, parts, std::move(options))),
      m_area(new MainArea(this)) {
    setWindowTitle(QStringLiteral("Tickervantage"));
    setObjectName(QStringLiteral("TickervantageWindow"));
    m_controls = build_main_window_controls(*m_area, m_cycle->meter());
    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_area, 1);
    column->addLayout(foot_of(m_controls)); // in sight wherever the area is scrolled to
    setCentralWidget(central);
    build_toolbar();
    connect_controls();
    connect(m_controls.own_machine, &QPushButton::clicked, this, [this] { show_host({}); });
    connect(m_controls.standing_notice, &QLabel::linkActivated, this, &TickervantageWindow::standing_notice_followed);
}

TickervantageWindow::~TickervantageWindow() = default;

void TickervantageWindow::build_toolbar() {
    //: main window: toolbar item that launches the application which configures a GPS receiver
    m_gpsd_toolbar = new QAction(tr("GPS Configuration"), this);
    m_gpsd_toolbar->setObjectName(QStringLiteral("m_gpsd_toolbar"));
    //: main window: tooltip of that item
    m_gpsd_toolbar->setToolTip(tr("Open Meridianox to configure a GPS receiver"));
    m_gpsd_toolbar->setEnabled(false);
    m_gpsd_toolbar->setVisible(false);
    //: main window: name of the toolbar
    m_toolbar = addToolBar(tr("Main Toolbar"));
    m_toolbar->setObjectName(QStringLiteral("toolbar"));
    m_toolbar->setMovable(false);
    m_toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_toolbar->addAction(m_gpsd_toolbar);
    m_toolbar->widgetForAction(m_gpsd_toolbar)->setObjectName(m_gpsd_toolbar->objectName());
    connect(m_gpsd_toolbar, &QAction::triggered, this, &TickervantageWindow::gpsd_application_requested);
}

void TickervantageWindow::add_toolbar_actions(const QList<QAction*>& actions) {
    m_toolbar->insertActions(m_gpsd_toolbar, actions);
}

void TickervantageWindow::connect_controls() {
    for (auto* button : {m_controls.m_preferences, m_controls.wrong_program_preferences})
        connect(button, &QPushButton::clicked, this, &TickervantageWindow::preferences_requested);
    connect(m_controls.commandMenu, &QComboBox::textActivated, this,
            [this](const QString& title) { m_cycle->chronycCommand(title.toStdString()); });
    connect(m_controls.meterSelect, &QComboBox::activated, this, [this](int index) {
        if (index == meter_view_count)
            m_cycle->show_error_bound();
        else
            m_cycle->selectMeter(index);
    });
    connect(m_controls.verdict, &VerdictPanel::explanation_wanted, m_controls.sources, &SourcesPanel::explain_all);
    connect(m_controls.verdict, &VerdictPanel::explanation_wanted, this,
            [this] { m_area->ensureWidgetVisible(m_controls.sources); });
    connect(m_controls.verdict, &VerdictPanel::quiet_wanted, this, &TickervantageWindow::quiet_wanted);
    connect(m_controls.verdict, &VerdictPanel::mending_wanted, this, &TickervantageWindow::mending_wanted);
    connect(m_controls.use_system_chrony, &QPushButton::clicked, this,
            [this] { Q_EMIT mending_wanted(Mending::use_distribution); });
    connect(m_controls.trend, &TrendPanel::graph_wanted, this, &TickervantageWindow::graph_requested);
    connect(m_controls.sources, &SourcesPanel::root_reports_wanted, this, [this] { m_cycle->want_root_reports(); });
    connect(m_controls.showIPaddress, &QCheckBox::clicked, this, [this](bool on) { m_cycle->showIPaddresses(on); });
    connect(m_controls.showOriginalName, &QCheckBox::clicked, this, [this](bool on) { m_cycle->showOriginalName(on); });
    connect(m_controls.m_server, &QComboBox::textActivated, this,
            [this](const QString& server) { m_cycle->selectNTPdataServer(server.trimmed().toStdString()); });
    connect(m_controls.m_server->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        const std::string server = m_controls.m_server->currentText().trimmed().toStdString();
        if (server != m_cycle->settings().m_server)
            m_cycle->selectNTPdataServer(server);
    });
    connect(m_controls.m_interval, &QSpinBox::valueChanged, this, [this](int seconds) {
        if (seconds != m_cycle->settings().m_interval)
            m_cycle->intervalChanged(seconds);
    });
}

void TickervantageWindow::windowDidLoad() {
    restore_frame();
    m_cycle->load();
    show_settings();
    redraw_clock();
    fix_clock_text_size();
}

// A label whose size may change lays the whole window out again at every tick.
void TickervantageWindow::fix_clock_text_size() {
    auto* label = m_controls.localTime;
    label->setFixedSize(label->sizeHint() + QSize(label->fontMetrics().averageCharWidth() * 6, 0));
}

void TickervantageWindow::show_settings() {
    const MainWindowSettings& settings = m_cycle->settings();
    const int command = m_controls.commandMenu->findText(from_std(settings.chronyCommand));
    if (command < 0)
        m_cycle->chronycCommand(m_controls.commandMenu->itemText(0).toStdString());
    m_controls.commandMenu->setCurrentIndex(std::max(command, 0));
    m_controls.meterSelect->setCurrentIndex(settings.meter_error_bound ? meter_view_count
                                                                       : static_cast<int>(settings.m_meterview));
    m_controls.showIPaddress->setChecked(settings.showIPaddress);
    m_controls.showOriginalName->setChecked(settings.showOriginalName);
    m_controls.m_interval->setValue(settings.m_interval);
    m_controls.m_server->setEditText(from_std(settings.m_server));
    m_controls.m_textscroll->set_font(settings.output_font);
}

void TickervantageWindow::settings_changed() {
    if (m_cycle->settings_changed())
        show_settings();
}

void TickervantageWindow::redraw_clock() {
    m_controls.analogClock->show_now();
    const QString time = local_time_text(QDateTime::currentDateTime(), locale());
    m_controls.localTime->setText(time);
    m_controls.analogClock->set_value_text(time);
}

void TickervantageWindow::redraw_meter() {
    m_controls.clockPerformance->show_now();
}

void TickervantageWindow::show_meter_value(const std::string& text) {
    const QString shown = from_std(with_local_point(text));
    if (shown == m_controls.meterValue->text())
        return;
    m_controls.meterValue->setText(shown);
    m_controls.clockPerformance->set_value_text(shown);
}

void TickervantageWindow::show_status(chronydStatus status) {
    if (std::exchange(m_shown_status, status) == status)
        return; // hiding and showing lays the window out again
    for (auto* image : m_controls.status_images)
        image->hide();
    m_controls.status_images.at(static_cast<std::size_t>(status))->show();
    m_controls.status_words->setText(status_words(status));
}

void TickervantageWindow::show_truth(std::shared_ptr<const ClockTruth> truth) {
    m_controls.verdict->show_truth(*truth);
    m_controls.sources->show_truth(truth);
    if (m_shows_own)
        Q_EMIT truth_shown(truth);
}

void TickervantageWindow::watch_truth(std::shared_ptr<const ClockTruth> truth) {
    Q_EMIT truth_shown(truth);
}

void TickervantageWindow::show_host(const QString& host) {
    if (host == from_std(m_cycle->host()))
        return;
    m_shows_own = false; // nor is the empty truth between the two
    m_cycle->show_host(host.toStdString());
    m_shows_own = host.isEmpty();
    //: main window: its title while the clock of another machine is shown; %1 is that machine
    setWindowTitle(m_shows_own ? QStringLiteral("Tickervantage") : tr("%1 – Tickervantage").arg(host));
    m_controls.host_words->setText(
        //: main window, banner: %1 is another machine
        tr("This is the clock of %1. It is only read: what changes chrony, the history, the alarms and the icon in the "
           "tray stay with this machine.")
            .arg(host));
    m_controls.host_bar->setVisible(!m_shows_own);
    set_standing_notice(m_controls.standing_notice->text());
    m_controls.trend->setVisible(m_shows_own);
    m_controls.chronydversion->setVisible(m_shows_own);
    m_controls.sources->offer_root_reports(m_shows_own);
    show_mending_facts({});
    show_alarm({});
    Q_EMIT host_shown(host);
}

void TickervantageWindow::show_trend(const Result<Trend>& trend) {
    m_controls.trend->show_trend(trend);
}

void TickervantageWindow::wait_for_trend() {
    m_controls.trend->wait_for_trend();
}

void TickervantageWindow::show_alarm(const QString& words) {
    m_controls.verdict->show_alarm(m_shows_own ? words : QString());
}

void TickervantageWindow::show_mending_facts(const MendingFacts& facts) {
    m_controls.verdict->show_mending_facts(m_shows_own ? facts : MendingFacts());
    m_controls.use_system_chrony->setVisible(facts.is_demonstration && facts.distribution);
}

void TickervantageWindow::connect_report_items(QAction& shown, QAction& separate) {
    using Place = ReportPane::Place;
    auto* report = m_controls.report;
    const auto follow = [report, &shown, &separate] {
        shown.setChecked(report->place() != Place::hidden);
        separate.setChecked(report->place() == Place::apart);
    };
    for (auto* item : {&shown, &separate})
        item->setCheckable(true);
    follow();
    connect(report, &ReportPane::place_changed, this, follow);
    connect(&shown, &QAction::triggered, report,
            [report](bool on) { report->set_place(on ? Place::docked : Place::hidden); });
    connect(&separate, &QAction::triggered, report,
            [report](bool on) { report->set_place(on ? Place::apart : Place::docked); });
}

void TickervantageWindow::show_clock_not_adjusted(bool shown) {
    m_controls.adjustingClock->setVisible(shown);
    m_controls.m_preferences->setVisible(shown && m_shows_own);
}

void TickervantageWindow::show_versions(const ProgramVersion& chronyc, const ProgramVersion& chronyd) {
    const auto show = [](QLabel* label, const char* program, const ProgramVersion& version) {
        //: main window: in place of a version; %1 is a program that could not be asked for it
        const QString missing = tr("%1: not available").arg(QLatin1String(program));
        label->setText(version.failure ? missing : from_std(version.label));
        label->setToolTip(version.failure ? in_words(*version.failure) : QString());
    };
    show(m_controls.chronycversion, "chronyc", chronyc);
    show(m_controls.chronydversion, "chronyd", chronyd);
    m_controls.wrong_program->hide();
}

void TickervantageWindow::show_original_name_choice(bool offered) {
    if (!offered)
        m_controls.showOriginalName->setChecked(false);
    m_controls.showOriginalName->setEnabled(offered);
    m_controls.showOriginalName->setVisible(offered);
}

void TickervantageWindow::show_server_field(bool shown) {
    m_controls.m_server_label->setVisible(shown);
    m_controls.m_server->setVisible(shown);
}

void TickervantageWindow::show_servers(const std::vector<std::string>& names, const std::string& current) {
    m_controls.m_server->clear();
    for (const auto& name : names)
        m_controls.m_server->addItem(from_std(name));
    m_controls.m_server->setCurrentIndex(-1);
    m_controls.m_server->setEditText(from_std(current));
}

void TickervantageWindow::show_output(const std::string& text) {
    m_controls.m_textscroll->show_text(text);
}

void TickervantageWindow::show_notice(const StatusNotice& notice) {
    const QString sentence = words_of(notice, from_std(m_cycle->host()));
    m_controls.m_status->setText(m_progress.isEmpty() ? sentence : m_progress);
    if (notice.kind != StatusNotice::Kind::none)
        m_controls.verdict->show_silence(sentence);
    // An empty report explains itself where the eye looks for it.
    m_controls.m_textscroll->show_instead(notice.kind == StatusNotice::Kind::none ? QString() : sentence);
    Q_EMIT reading_applied(notice);
}

void TickervantageWindow::enable_gpsd_item(bool enabled) {
    if (enabled && m_gpsd_toolbar->icon().isNull()) // looking for an icon costs start-up time: only where it is shown
        m_gpsd_toolbar->setIcon(QIcon::fromTheme(QLatin1String(StatusCycle::GPSD_CONF_ID)));
    m_gpsd_toolbar->setEnabled(enabled);
    m_gpsd_toolbar->setVisible(enabled);
}

void TickervantageWindow::ask_for_rights() {
    Q_EMIT rights_requested();
}

void TickervantageWindow::stop_program(const std::string& programming_error) {
    Q_EMIT stop_requested(from_std(programming_error));
}

void TickervantageWindow::stop_for_version(const std::string& program, const std::string& answer) {
    const QString sentence =
        //: main window, notice: %1 is chronyc or chronyd, %2 what it printed when asked for its version
        tr("Asked for its version, %1 printed “%2”, which is not how chrony answers. "
           "Please check the path of %1 in the preferences.")
            .arg(from_std(program), from_std(answer));
    if (!m_controls.wrong_program->isHidden() && m_controls.wrong_program_words->text() == sentence)
        return; // each reading asks again
    m_controls.wrong_program_words->setText(sentence);
    m_controls.wrong_program->show();
    Q_EMIT wrong_program_found(sentence);
}

void TickervantageWindow::set_standing_notice(const QString& text) {
    m_controls.standing_notice->setText(text);
    m_controls.standing_bar->setVisible(!text.isEmpty() && m_shows_own);
}

void TickervantageWindow::set_progress(const QString& text) {
    m_progress = text;
    if (!text.isEmpty())
        m_controls.m_status->setText(text);
}

void TickervantageWindow::set_output_font(const Font& font) {
    m_cycle->set_output_font(font);
    m_controls.m_textscroll->set_font(font);
}

void TickervantageWindow::chooseFont() {
    bool chosen = false;
    //: title of the dialog that chooses the font of chronyc's output
    const QFont font = QFontDialog::getFont(&chosen, m_controls.m_textscroll->font(), this, tr("Output Font"),
                                            QFontDialog::MonospacedFonts);
    if (chosen)
        set_output_font({font.family().toStdString(), font.pointSizeF()});
}

void TickervantageWindow::defaultFont() {
    set_output_font({});
}

void TickervantageWindow::restore_frame() {
    const QByteArray frame =
        QByteArray::fromBase64(QByteArray::fromStdString(m_settings_store.loadString(frame_key, {})));
    if (frame.isEmpty() || !restoreGeometry(frame))
        resize(sizeHint().expandedTo(scaled(QSize(1240, 860), *this)).boundedTo(screen()->availableSize()));
    const QByteArray layout =
        QByteArray::fromBase64(QByteArray::fromStdString(m_settings_store.loadString(layout_key, {})));
    QByteArray area;
    QByteArray report;
    QDataStream stream(layout);
    stream >> area >> report;
    if (!area.isEmpty())
        m_area->restore_layout(area);
    if (!report.isEmpty())
        restore_report(report);
}

void TickervantageWindow::restore_report(const QByteArray& state) {
    quint8 place = 0;
    QByteArray geometry;
    QDataStream stream(state);
    stream >> place >> geometry;
    m_controls.report->set_apart_geometry(geometry);
    m_controls.report->set_place(static_cast<ReportPane::Place>(std::min<quint8>(place, 2)));
}

QByteArray TickervantageWindow::report_state() const {
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream << static_cast<quint8>(m_controls.report->place()) << m_controls.report->apart_geometry();
    return state;
}

void TickervantageWindow::save_frame() {
    m_settings_store.saveString(frame_key, saveGeometry().toBase64().toStdString());
    QByteArray layout;
    QDataStream stream(&layout, QIODevice::WriteOnly);
    stream << m_area->layout_state() << report_state();
    m_settings_store.saveString(layout_key, layout.toBase64().toStdString());
}

void TickervantageWindow::closeEvent(QCloseEvent* event) {
    show_host({}); // what goes on without a window is this machine's
    m_cycle->close();
    save_frame();
    m_controls.report->show_apart(false);
    QMainWindow::closeEvent(event);
}

void TickervantageWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    m_controls.report->show_apart(true);
    update_visibility();
}

void TickervantageWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    update_visibility();
}

void TickervantageWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        update_visibility();
}

void TickervantageWindow::update_visibility() {
    m_cycle->set_visible(isVisible() && !isMinimized());
}

} // namespace tickervantage
