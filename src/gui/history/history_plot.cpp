#include "gui/history/history_plot.h"

#include "draw/graph_geometry.h"
#include "gui/history/history_words.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double steps_of_doubling = 3; // of the wheel
constexpr double key_step = 1;          // points that the crosshair moves
constexpr double long_key_step = 20;
constexpr double event_reach = 5; // points by which the crosshair may miss an event

} // namespace

HistoryPlot::HistoryPlot(QWidget* parent)
    : PlotSurface(parent, {.preferred = QSize(1000, 480), .smallest = QSize(320, 160)}),
      m_gestures(new PlotGestures(this)) {
    m_gestures->set_frames(true, false);
    connect_gestures();
}

void HistoryPlot::connect_gestures() {
    connect(m_gestures, &PlotGestures::scroll_requested, this, [this](double dx, double) { slide_by(dx); });
    connect(m_gestures, &PlotGestures::zoom_requested, this, &HistoryPlot::zoom);
    connect(m_gestures, &PlotGestures::fit_requested, this, &HistoryPlot::fit_requested);
    connect(m_gestures, &PlotGestures::oldest_requested, this, [this] { show_end(false); });
    connect(m_gestures, &PlotGestures::newest_requested, this, [this] { show_end(true); });
    connect(m_gestures, &PlotGestures::pointed_at, this, [this](const QPointF& at) { pointer_moved(flipped(at)); });
    connect(m_gestures, &PlotGestures::clicked, this, &HistoryPlot::click);
    connect(m_gestures, &PlotGestures::frame_changed, this, [this] { update(); });
    connect(m_gestures, &PlotGestures::frame_chosen, this, [this](double from, double to) {
        go({m_view.time_at(from, bounds()), m_view.time_at(to, bounds())});
    });
}

void HistoryPlot::plot_changed() {
    PlotSurface::plot_changed();
    Q_EMIT pointers_changed();
}

void HistoryPlot::show_range() {
    m_view.set_range(m_path.now());
    plot_changed();
    Q_EMIT moved();
}

void HistoryPlot::go(const TimeRange& range) {
    m_path.go(zoomed(range, range.from, 1)); // no shorter than can be shown
    show_range();
}

void HistoryPlot::follow(const TimeRange& range) {
    m_path.follow(range);
    show_range();
}

void HistoryPlot::back() {
    m_path.back();
    show_range();
}

void HistoryPlot::forward() {
    m_path.forward();
    show_range();
}

// Half of the plot may lie beside the data.
void HistoryPlot::slide_by(double points) {
    const auto extent = m_view.data().extent();
    if (!extent)
        return;
    const TimeRange now = m_path.now();
    const double by = points / m_view.plot_area(bounds()).width * now.length();
    const double margin = now.length() / 2;
    m_path.slide(kept_within({now.from + by, now.to + by}, {extent->from - margin, extent->to + margin}));
    show_range();
}

void HistoryPlot::zoom(double steps, double x) {
    if (is_empty())
        return;
    m_path.slide(zoomed(m_path.now(), m_view.time_at(x, bounds()), std::pow(2.0, -steps / steps_of_doubling)));
    show_range();
}

void HistoryPlot::show_end(bool newest) {
    const auto extent = m_view.data().extent();
    if (!extent)
        return;
    const double length = m_path.now().length();
    go(newest ? TimeRange{extent->to - length, extent->to} : TimeRange{extent->from, extent->from + length});
}

void HistoryPlot::pointer_moved(std::optional<Point> position) {
    const bool is_inside = position && contains(m_view.plot_area(bounds()), *position);
    m_pointers.pointer = is_inside ? std::optional(m_view.time_at(position->x, bounds())) : std::nullopt;
    if (position)
        Q_EMIT marks_pointed_at(mapToGlobal(QPointF(position->x, height() - position->y)).toPoint(),
                                m_view.marks_at(*position, bounds()));
    update();
    Q_EMIT pointers_changed();
}

void HistoryPlot::set_cursor_at(bool second, std::optional<double> time) {
    (second ? m_pointers.second : m_pointers.first) = time;
    update();
    Q_EMIT pointers_changed();
}

void HistoryPlot::click(const QPointF& position, Qt::KeyboardModifiers modifiers) {
    const Point at = flipped(position);
    const double time = m_view.time_at(at.x, bounds());
    if (const HistoryLane* lane = m_view.lane_at(at, bounds()))
        Q_EMIT lane_chosen(QString::fromStdString(lane->source), time);
    else if (!is_empty() && contains(m_view.plot_area(bounds()), at))
        set_cursor_at(modifiers.testFlag(Qt::ShiftModifier), time);
}

void HistoryPlot::move_pointer(double points) {
    const TimeRange now = m_path.now();
    const double step = points / m_view.plot_area(bounds()).width * now.length();
    const double from = m_pointers.pointer.value_or((now.from + now.to) / 2);
    m_pointers.pointer = std::clamp(from + step, now.from, now.to);
    update();
    Q_EMIT pointers_changed();
}

// The next or previous one from the crosshair; one out of sight is brought to the middle.
void HistoryPlot::point_at_event(bool next) {
    const TimeRange now = m_path.now();
    const double from = m_pointers.pointer.value_or(next ? now.from : now.to);
    const auto marks = m_view.marks_of(
        {next ? std::nextafter(from, HUGE_VAL) : -HUGE_VAL, next ? HUGE_VAL : std::nextafter(from, -HUGE_VAL)});
    if (marks.empty())
        return;
    const double time = next ? marks.front().time : marks.back().time;
    if (time < now.from || time > now.to)
        go({time - now.length() / 2, time + now.length() / 2});
    m_pointers.pointer = time;
    update();
    Q_EMIT pointers_changed();
}

bool HistoryPlot::take_pointer_key(const QKeyEvent& event) {
    const bool is_far = event.modifiers().testFlag(Qt::ShiftModifier);
    const double step = is_far ? long_key_step : key_step;
    if (event.modifiers().testFlag(Qt::ControlModifier) &&
        (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right)) {
        move_pointer(event.key() == Qt::Key_Left ? -step : step);
        return true;
    }
    switch (event.key()) {
    case Qt::Key_A:
    case Qt::Key_B:
        if (m_pointers.pointer)
            set_cursor_at(event.key() == Qt::Key_B, m_pointers.pointer);
        return true;
    case Qt::Key_N:
    case Qt::Key_P:
        point_at_event(event.key() == Qt::Key_N);
        return true;
    case Qt::Key_Escape:
        m_pointers = {};
        set_cursor_at(false, std::nullopt);
        return true;
    case Qt::Key_Backspace:
        back();
        return true;
    default:
        return false;
    }
}

void HistoryPlot::keyPressEvent(QKeyEvent* event) {
    if (!take_pointer_key(*event) && !m_gestures->take_key(*event))
        QWidget::keyPressEvent(event);
}

void HistoryPlot::draw_plot(Canvas& canvas) const {
    if (!is_empty())
        m_view.draw(canvas, bounds());
}

void HistoryPlot::draw_over(QPainter& painter) const {
    m_gestures->draw_frame(painter);
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    m_view.draw_pointers(canvas, bounds(), m_pointers);
    if (m_pointers.pointer && !is_empty() && !m_gestures->is_dragging()) {
        const double near = event_reach / m_view.plot_area(bounds()).width * m_path.now().length();
        draw_notes(canvas, m_view, bounds(), notes_at(m_view, *m_pointers.pointer, near));
    }
    draw_focus(painter);
}

} // namespace tickervantage
