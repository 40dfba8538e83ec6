#include "gui/tracking/tracking_window.h"

#include "base/failure_codes.h"
#include "gui/tracking/graph_scroll_area.h"
#include "gui/tracking/legend.h"
#include "gui/tracking/readout_label.h"
#include "gui/tracking/tracking_words.h"
#include "qt/in_words.h"
#include "qt/named_widget.h"
#include "qt/text_scale.h"
#include "studies/tracking/tracking_rows.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QStatusBar>
#include <QToolButton>

#include <cerrno>
#include <chrono>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t ROWS_IN_A_SLICE = 20'000; // some milliseconds
constexpr double first_lines_come = 0.3;        // seconds
constexpr int seconds_per_hour = 3600;

double slider_value(const QSlider* slider) {
    return slider->value() / slider_steps;
}

void set_slider(QSlider* slider, double value) {
    slider->setValue(static_cast<int>(std::lround(value * slider_steps)));
}

bool is_forbidden(const std::optional<Failure>& problem) {
    return problem && problem->cause != nullptr && *problem->cause == system_failure(EACCES);
}

} // namespace

double seconds_of_this_machine() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

TrackingWindow::TrackingWindow(TrackingWindowParts parts)
    : m_parts(std::move(parts)), m_view({.master_timer = m_parts.timer,
                                         .now = m_parts.now,
                                         .redraw =
                                             [this] {
                                                 m_controls.trackingView->resize_frame();
                                             }}),
      m_read_timer(m_parts.timer.make_repeater("first_lines", Pace::free)) {
    setObjectName(QStringLiteral("TrackingWindow"));
    auto* central = new QWidget(this);
    m_controls = build_tracking_controls(central, m_view);
    setCentralWidget(central);
    build_exports();
    connect_controls();
    connect_graph();
    resize(scaled(QSize(1000, 560), *this));
}

TrackingWindow::~TrackingWindow() = default;

void TrackingWindow::build_exports() {
    m_exports = std::make_unique<PlotExport>(this, m_controls.trackingView, *this, m_parts.exports);
    connect(m_exports.get(), &PlotExport::said, this, [this](const QString& said) { statusBar()->showMessage(said); });
}

void TrackingWindow::draw_plot(Canvas& canvas, Rect /*bounds*/) const {
    m_controls.trackingView->draw(canvas);
}

void TrackingWindow::connect_controls() {
    connect(m_controls.makeReadable, &QPushButton::clicked, this, &TrackingWindow::makeReadable);
    for (auto* slider : {m_controls.hZoom, m_controls.vZoom, m_controls.vScale})
        connect(slider, &QSlider::valueChanged, this, [this] { apply_sliders(); });
    connect(m_controls.hZoom, &QSlider::actionTriggered, this, [this] { m_holds_range = false; });
    connect(m_controls.dataTimeRange, &QComboBox::activated, this, [this] {
        apply_legend();
        if (!std::exchange(m_holds_range, true))
            m_own_zoom = slider_value(m_controls.hZoom);
        hold_range();
    });
    connect(m_controls.showLegend, &QPushButton::clicked, this, [this] { showLegend(); });
    connect(m_controls.showSpectrum, &QPushButton::clicked, this, &TrackingWindow::spectrum_requested);
    connect(m_controls.export_button, &QPushButton::clicked, this, [this] { m_exports->ask_for_file(); });
    connect(m_controls.pause, &QToolButton::clicked, this, [this] { m_view.pause(true); });
    connect(m_controls.play, &QToolButton::clicked, this, [this] {
        m_view.pause(false);
        m_controls.trackingView->resize_frame();
    });
    connect(m_controls.legend, &LegendView::changed, this, [this] { apply_legend(); });
    connect(m_controls.legend, &LegendView::closed, this, [this] { closeLegend(); });
    connect(m_controls.legend, &LegendView::cancelled, this, [this] { cancelLegend(); });
    connect(m_controls.legend, &LegendView::defaulted, this, [this] {
        m_controls.legend->set_settings(default_popover);
        apply_legend();
    });
}

void TrackingWindow::connect_graph() {
    auto* area = m_controls.trackingView;
    connect(area, &GraphScrollArea::zoom_requested, this, [this](double steps, double x) { zoom(steps, x); });
    connect(area, &GraphScrollArea::vertical_zoom_requested, this,
            [this](double steps) { set_slider(m_controls.vZoom, slider_value(m_controls.vZoom) + steps / 4); });
    connect(area, &GraphScrollArea::resized, this, &TrackingWindow::hold_range);
    connect(area, &GraphScrollArea::fit_requested, this, &TrackingWindow::fit);
    connect(m_controls.fit, &QPushButton::clicked, this, &TrackingWindow::fit);
    connect(m_controls.fit_action, &QAction::triggered, this, &TrackingWindow::fit);
    connect(m_controls.reset_action, &QAction::triggered, this, &TrackingWindow::reset_zoom);
    connect(area, &GraphScrollArea::pointed_at, this, [this](double x) { show_readout(x); });
    connect(area, &GraphScrollArea::pointer_left, this, &TrackingWindow::show_no_readout);
}

void TrackingWindow::windowDidLoad() {
    load_settings();
    m_view.awakeFromNib();
    apply_sliders();
    apply_legend();
    update_spectrum_button();
}

void TrackingWindow::load_settings() {
    const TrackingSettings settings = TrackingSettings::load(m_parts.settings);
    set_slider(m_controls.vZoom, settings.vZoom);
    set_slider(m_controls.hZoom, settings.hZoom);
    m_controls.vScale->setValue(static_cast<int>(std::lround(settings.vScale)));
    m_controls.dataTimeRange->setCurrentIndex(settings.dataTimeRange);
    m_controls.legend->set_settings(settings.legend);
}

TrackingSettings TrackingWindow::current_settings() const {
    TrackingSettings settings;
    settings.legend = m_controls.legend->settings();
    settings.dataTimeRange = m_controls.dataTimeRange->currentIndex();
    settings.vZoom = slider_value(m_controls.vZoom);
    settings.hZoom = m_holds_range ? m_own_zoom : slider_value(m_controls.hZoom); // the range's suits this log alone
    settings.vScale = m_controls.vScale->value();
    return settings;
}

void TrackingWindow::apply_sliders() {
    m_view.set_vertical_zoom(slider_value(m_controls.vZoom));
    m_view.set_vertical_scale(m_controls.vScale->value());
    m_view.set_horizontal_zoom(slider_value(m_controls.hZoom));
    m_controls.trackingView->resize_frame();
}

// All of the chosen range in sight, until somebody zooms.
void TrackingWindow::hold_range() {
    if (!m_holds_range || !m_ends)
        return;
    const int hours = range_hours(m_controls.dataTimeRange->currentIndex());
    const auto seconds = hours == 0 ? std::nullopt : std::optional<double>(hours * seconds_per_hour);
    if (const auto zoom = m_view.zoom_to_hold(m_controls.trackingView->visible().width, seconds))
        set_slider(m_controls.hZoom, *zoom);
    m_controls.trackingView->scroll_to_newest();
}

void TrackingWindow::zoom(double steps, double viewport_x) {
    m_holds_range = false;
    const QSignalBlocker quiet(m_controls.hZoom); // its own reaction would zoom about the right edge
    set_slider(m_controls.hZoom, slider_value(m_controls.hZoom) + steps / 4);
    m_controls.trackingView->zoom_about(viewport_x, slider_value(m_controls.hZoom));
}

void TrackingWindow::reset_zoom() {
    m_holds_range = false;
    set_slider(m_controls.hZoom, 0);
    set_slider(m_controls.vZoom, 0);
}

void TrackingWindow::fit() {
    auto* area = m_controls.trackingView;
    const Rect frame = area->frame();
    const auto fit = m_view.fit({0, 0, frame.width, frame.height}, area->visible());
    if (!fit)
        return;
    {
        const QSignalBlocker quiet_zoom(m_controls.vZoom); // all at once
        const QSignalBlocker quiet_scale(m_controls.vScale);
        set_slider(m_controls.vZoom, fit->vertical_zoom);
        m_controls.vScale->setValue(static_cast<int>(std::lround(fit->vertical_scale)));
    }
    apply_sliders();
    area->scroll_to_zero_line();
}

PlotCaption TrackingWindow::plot_caption() const {
    return caption_of(m_view, m_controls.trackingView->frame(), m_controls.trackingView->visible(),
                      m_controls.titleView->text());
}

void TrackingWindow::apply_legend() {
    const popover_settings legend = m_controls.legend->settings();
    m_view.shown = legend.shown;
    m_view.colors = legend.colors;
    m_view.use_logscale = legend.use_logscale;
    m_controls.readout->reserve(longest_words(legend.shown, locale()));
    apply_time_range();
    m_controls.trackingView->resize_frame();
    describe_graph();
}

void TrackingWindow::apply_time_range() {
    const int hours = range_hours(m_controls.dataTimeRange->currentIndex());
    if (hours == 0) {
        if (std::exchange(m_view.filtertimestamps, false))
            load_log();
        return;
    }
    const bool was_filtered = std::exchange(m_view.filtertimestamps, true);
    const bool same_range =
        std::exchange(m_view.display_data_range, hours * seconds_per_hour) == hours * seconds_per_hour;
    if (!was_filtered || !same_range)
        load_log();
}

void TrackingWindow::set_log(const QString& path, bool live) {
    m_logname = path;
    if (path.isEmpty())
        return;
    setWindowTitle(path);
    m_controls.titleView->setText(path);
    m_controls.pauseplay->setVisible(live);
    m_view.pause(!live);
    m_view.m_livetracking = live;
    m_empty.is_live = live;
    apply_legend();
    if (!m_trackinglog)
        load_log();
}

void TrackingWindow::show_titles(const QString& title, const QString& heading) {
    setWindowTitle(title);
    m_controls.titleView->setText(heading);
}

void TrackingWindow::load_log() {
    if (m_logname.isEmpty())
        return;
    if (!m_trackinglog) {
        m_trackinglog = std::make_unique<LogReader>(
            m_logname.toStdString(), m_parts.files, *m_parts.queue, m_parts.main_thread,
            LogReader::Handlers{.line = [this](std::string_view line, bool last) { take_line(line, last); },
                                .problem =
                                    [this](const std::optional<Failure>& problem) {
                                        show_problem(problem);
                                    }},
            m_parts.log_timing);
    }
    m_view.clear();
    m_ends.reset();
    m_is_read = m_empty.has_older_records = false;
    show_emptiness();
    m_trackinglog->follow();
}

void TrackingWindow::take_line(std::string_view line, bool last) {
    if (const auto ends = m_view.add_line(line))
        m_ends = ends;
    else if (m_view.filtertimestamps && !line.empty() && line.front() >= '0' && line.front() <= '9')
        m_empty.has_older_records = true; // of those it keeps none
    if (last)
        end_of_block();
    else if (!std::exchange(m_animated, true))
        m_controls.loadingLog->show();
}

void TrackingWindow::end_of_block() {
    if (std::exchange(m_animated, false))
        m_controls.loadingLog->hide();
    if (m_ends && !m_view.m_livetracking)
        m_view.end_with_log();
    m_controls.trackingView->resize_frame();
    hold_range();
    if (m_ends) {
        m_controls.startDate->setText(from_std(local_date_time(m_ends->first)));
        m_controls.endDate->setText(from_std(local_date_time(m_ends->last)));
    }
    m_is_read = true;
    show_emptiness();
    describe_graph();
    update_spectrum_button();
    Q_EMIT block_arrived();
}

// For those who cannot see it.
void TrackingWindow::describe_graph() {
    m_controls.trackingView->setAccessibleDescription(
        m_is_read && records().empty() ? empty_words(m_empty)
                                       : description_of(m_view, m_controls.trackingView->frame(), m_ends, locale()));
}

void TrackingWindow::show_emptiness() {
    const bool empty = m_is_read && records().empty() && !m_animated;
    m_controls.empty->setVisible(empty);
    if (!empty)
        return;
    m_controls.empty->setText(empty_words(m_empty));
    describe_graph();
    if (m_empty.is_live && !std::exchange(m_setting_asked, true))
        Q_EMIT log_setting_requested();
}

void TrackingWindow::show_log_setting(const LogSettingAnswer& answer) {
    m_empty.setting = answer.setting;
    m_empty.configuration = answer.configuration;
    offer_to_make_readable();
    show_emptiness();
}

void TrackingWindow::update_spectrum_button() {
    m_controls.showSpectrum->setVisible(m_parts.preferences.spectrum);
}

void TrackingWindow::show_no_readout() {
    m_controls.readout->setText(m_empty.problem ? in_words(*m_empty.problem) : QString());
}

void TrackingWindow::show_problem(const std::optional<Failure>& problem) {
    m_empty.problem = problem;
    show_no_readout();
    offer_to_make_readable();
    if (!problem)
        m_read_timer->start(first_lines_come, [this] { read_so_far(); });
    else
        read_so_far();
}

// Of a log that nobody writes it would change nothing.
void TrackingWindow::offer_to_make_readable() {
    const bool is_written =
        m_empty.setting != TrackingLogSetting::not_asked_for && m_empty.setting != TrackingLogSetting::no_folder;
    m_controls.makeReadable->setVisible(m_empty.is_live && m_parts.can_make_log_readable && is_written &&
                                        is_forbidden(m_empty.problem));
}

void TrackingWindow::read_so_far() {
    m_read_timer->stop();
    m_is_read = true;
    show_emptiness();
}

void TrackingWindow::makeReadable() {
    m_controls.makeReadable->setEnabled(false);
    Q_EMIT log_readable_requested();
}

void TrackingWindow::show_log_readable(const Result<>& outcome) {
    m_controls.makeReadable->setEnabled(true);
    if (outcome)
        load_log();
    else
        statusBar()->showMessage(in_words(outcome.error()));
}

void TrackingWindow::show_readout(double frame_x) {
    const Rect frame = m_controls.trackingView->frame();
    const auto found = m_view.readout(frame_x, {0, 0, frame.width, frame.height});
    if (!found) {
        show_no_readout();
        return;
    }
    m_controls.readout->setText(words_of(*found, m_view.shown, locale()));
}

void TrackingWindow::showLegend() {
    if (m_controls.legend->isVisible()) {
        closeLegend();
        return;
    }
    save_popover = m_controls.legend->settings();
    m_controls.legend->show_below(m_controls.showLegend);
}

void TrackingWindow::closeLegend() {
    apply_legend();
    m_controls.legend->hide();
}

void TrackingWindow::cancelLegend() {
    m_controls.legend->set_settings(save_popover);
    closeLegend();
}

namespace {

// The rows that were in sight at the start; a live log grows meanwhile.
class RowsInSight : public PlotTable {
public:
    RowsInSight(const TrackingWindow& window, TrackingRows rows) : m_window(window), m_rows(std::move(rows)) {}

    Taking take_slice() override {
        if (!m_rows.are_still_in(m_window.records()))
            return Taking::lost;
        return m_rows.take(m_window.records(), ROWS_IN_A_SLICE) ? Taking::all : Taking::more;
    }
    [[nodiscard]] std::string csv() const override {
        std::string text;
        const auto append = [&text](std::string_view piece) {
            text += piece;
            return true;
        };
        (void)m_rows.write(RowFormat::csv, append); // appending never says no
        return text;
    }

private:
    const TrackingWindow& m_window; // main thread only
    TrackingRows m_rows;
};

} // namespace

std::shared_ptr<PlotTable> TrackingWindow::plot_table() {
    const Rect frame = m_controls.trackingView->frame();
    return std::make_shared<RowsInSight>(
        *this, TrackingRows(m_view.in_sight({0, 0, frame.width, frame.height}, m_controls.trackingView->visible()),
                            m_view.shown));
}

void TrackingWindow::closeEvent(QCloseEvent* event) {
    current_settings().save(m_parts.settings);
    m_trackinglog.reset();
    QMainWindow::closeEvent(event);
    Q_EMIT windowWillClose();
}

void TrackingWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    Q_EMIT windowDidBecomeMain();
    m_setting_asked = false; // the configuration may have been edited meanwhile
    show_emptiness();
}

} // namespace tickervantage
