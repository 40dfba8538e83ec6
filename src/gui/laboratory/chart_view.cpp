#include "gui/laboratory/chart_view.h"

#include "qt/local_number.h"

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

constexpr double steps_of_doubling = 3;  // of the wheel
constexpr double shortest = 0.05;        // in sight, as a logarithm: labels of three digits still differ
constexpr double room_about_point = 0.1; // of what is in sight

// Where the point went that was pointed at; none: it is no more.
std::optional<ChartPlace> same_place(const LogChart& chart, const std::optional<ChartPlace>& place, double x) {
    if (!place || place->panel >= chart.panels.size() || place->series >= chart.panels[place->panel].series.size())
        return std::nullopt;
    const auto& points = chart.panels[place->panel].series[place->series].points;
    const bool is_there = place->point < points.size() && std::abs(points[place->point].x / x - 1) < 1e-6;
    return is_there ? place : std::nullopt;
}

} // namespace

ChartView::ChartView(QWidget* parent)
    : PlotSurface(parent, {.preferred = QSize(700, 360), .smallest = QSize(280, 170)}),
      m_gestures(new PlotGestures(this)) {
    m_gestures->set_frames(true, false);
    connect_gestures();
}

void ChartView::connect_gestures() {
    connect(m_gestures, &PlotGestures::scroll_requested, this, [this](double dx, double) { slide_by(dx); });
    connect(m_gestures, &PlotGestures::zoom_requested, this, &ChartView::zoom);
    connect(m_gestures, &PlotGestures::fit_requested, this, &ChartView::show_all);
    connect(m_gestures, &PlotGestures::pointed_at, this, [this](const QPointF& at) { pointer_moved(flipped(at)); });
    connect(m_gestures, &PlotGestures::frame_changed, this, [this] { update(); });
    connect(m_gestures, &PlotGestures::frame_chosen, this, &ChartView::frame);
}

void ChartView::set_chart(LogChart chart) {
    const auto pointed =
        m_pointed ? same_place(chart, m_pointed, tickervantage::point_at(m_chart, *m_pointed).x) : std::nullopt;
    const TimeRange all{std::log(chart.from), std::log(chart.to)};
    if (chart.axis != m_chart.axis || m_path.now().length() == 0)
        forget_view();
    m_path.extend(std::exchange(m_all, all), all);
    m_path.follow(held(m_path.now()));
    m_chart = std::move(chart);
    m_chart.decimal_point = QLocale().decimalPoint().toStdString();
    setAccessibleDescription({});
    m_pointed = pointed;
    show_part();
    Q_EMIT pointed_changed();
}

void ChartView::clear(const QString& reason) {
    point_at(std::nullopt);
    m_chart = {};
    set_empty_text(reason);
    setAccessibleDescription(reason);
    plot_changed();
    Q_EMIT moved();
}

void ChartView::forget_view() {
    m_path = {};
    m_all = {};
}

void ChartView::point_at(std::optional<ChartPlace> place) {
    if (m_pointed == place)
        return;
    m_pointed = place;
    update();
    Q_EMIT pointed_changed();
}

TimeRange ChartView::held(const TimeRange& range) const {
    const bool is_part = range.length() < m_all.length() * (1 - 1e-9);
    return is_part ? kept_within(range, m_all) : m_all;
}

void ChartView::slide_to(const TimeRange& range) {
    m_path.slide(held(range));
    show_part();
}

void ChartView::show_part() {
    m_chart.from = std::exp(m_path.now().from);
    m_chart.to = std::exp(m_path.now().to);
    plot_changed();
    Q_EMIT moved();
}

void ChartView::back() {
    m_path.back();
    show_part();
}

void ChartView::forward() {
    m_path.forward();
    show_part();
}

void ChartView::show_all() {
    if (is_empty())
        return;
    m_path.go(m_all);
    show_part();
}

void ChartView::slide_by(double points) {
    if (is_empty())
        return;
    const LogAxis across = level_axis(m_chart, bounds());
    const double by = std::log(across.value_at(points) / across.value_at(0));
    slide_to({m_path.now().from + by, m_path.now().to + by});
}

void ChartView::zoom(double steps, double x) {
    if (is_empty())
        return;
    const double about = std::log(level_axis(m_chart, bounds()).value_at(x));
    slide_to(zoomed(m_path.now(), about, std::pow(2.0, -steps / steps_of_doubling), shortest));
}

void ChartView::frame(double from, double to) {
    if (is_empty())
        return;
    const LogAxis across = level_axis(m_chart, bounds());
    const TimeRange wanted{std::max(std::log(across.value_at(from)), m_all.from),
                           std::min(std::log(across.value_at(to)), m_all.to)};
    if (wanted.length() > 0)
        m_path.go(held(zoomed(wanted, wanted.from, 1, shortest)));
    show_part();
}

void ChartView::draw_plot(Canvas& canvas) const {
    if (!is_empty())
        draw_on(canvas, bounds());
}

void ChartView::draw_over(QPainter& painter) const {
    m_gestures->draw_frame(painter);
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    if (m_pointed)
        draw_pointer(canvas, bounds(), m_chart, *m_pointed);
    draw_focus(painter);
}

void ChartView::pointer_moved(std::optional<Point> position) {
    point_at(position ? nearest(m_chart, bounds(), *position) : std::nullopt);
}

void ChartView::point_by_key(std::optional<ChartPlace> place) {
    point_at(place);
    if (!place)
        return;
    const double at = std::log(tickervantage::point_at(m_chart, *place).x);
    const TimeRange now = m_path.now();
    const double margin = now.length() * room_about_point;
    const double by = std::min(0.0, at - margin - now.from) + std::max(0.0, at + margin - now.to);
    if (by != 0)
        slide_to({now.from + by, now.to + by});
}

bool ChartView::take_pointer_key(int key) {
    constexpr int all = 1'000'000;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        point_by_key(tickervantage::moved(m_chart, m_pointed, key == Qt::Key_Left ? -1 : 1));
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        point_by_key(tickervantage::moved(m_chart, m_pointed, key == Qt::Key_Home ? -all : all));
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (m_pointed)
            point_by_key(on_next_curve(m_chart, *m_pointed, key == Qt::Key_Up ? -1 : 1));
        return true;
    case Qt::Key_Escape:
        point_at(std::nullopt);
        return true;
    case Qt::Key_Backspace:
        back();
        return true;
    default:
        return false;
    }
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (!take_pointer_key(event->key()) && !m_gestures->take_key(*event))
        PlotSurface::keyPressEvent(event);
}

} // namespace tickervantage
