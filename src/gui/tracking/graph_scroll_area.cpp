#include "gui/tracking/graph_scroll_area.h"

#include "draw/plots/performance_graph.h"
#include "qt/accessible_widgets.h"
#include "qt/canvas_colors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

// Scroll bars count in whole numbers: beyond this many points one step of a bar is several points.
constexpr double longest_bar = 1e6;

double bar_unit(double length) {
    return std::max(1.0, length / longest_bar);
}

} // namespace

GraphScrollArea::GraphScrollArea(PerformanceGraph& graph, QWidget* parent)
    : QAbstractScrollArea(parent), m_graph(graph), m_gestures(new PlotGestures(viewport())) {
    announce_as(this, QAccessible::Chart);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // the graph fills its background itself
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 120);
    connect_gestures();
}

void GraphScrollArea::connect_gestures() {
    connect(m_gestures, &PlotGestures::zoom_requested, this, &GraphScrollArea::zoom_requested);
    connect(m_gestures, &PlotGestures::vertical_zoom_requested, this, &GraphScrollArea::vertical_zoom_requested);
    connect(m_gestures, &PlotGestures::fit_requested, this, &GraphScrollArea::fit_requested);
    connect(m_gestures, &PlotGestures::scroll_requested, this, &GraphScrollArea::scroll_by);
    connect(m_gestures, &PlotGestures::oldest_requested, this, &GraphScrollArea::scroll_to_oldest);
    connect(m_gestures, &PlotGestures::newest_requested, this, &GraphScrollArea::scroll_to_newest);
    connect(m_gestures, &PlotGestures::pointed_at, this, &GraphScrollArea::redraw);
    connect(m_gestures, &PlotGestures::pointer_left, this, [this] {
        viewport()->update();
        Q_EMIT pointer_left();
    });
}

Rect GraphScrollArea::visible() const {
    const double width = viewport()->width();
    const double height = viewport()->height();
    return {m_frame.width - width - m_right_gap, (m_frame.height - height) / 2 - m_above_center, width, height};
}

void GraphScrollArea::resize_frame() {
    m_frame = m_graph.resizeFrame(m_frame, visible());
    keep_inside();
    update_scroll_bars();
    redraw();
}

void GraphScrollArea::zoom_about(double viewport_x, double zoom) {
    const double origin_right = m_graph.xaxis_offset;
    const double from_origin =
        visible().width - viewport_x + m_right_gap - origin_right; // points before the newest time
    const double before = m_graph.xscale;
    m_graph.set_horizontal_zoom(zoom);
    const double moved = from_origin * (m_graph.xscale / before - 1);
    m_right_gap += moved;
    resize_frame();
}

// Whatever moved, the pointer or the graph beneath it: another record may be under it.
void GraphScrollArea::redraw() {
    viewport()->update();
    if (const auto pointer = m_gestures->pointer())
        Q_EMIT pointed_at(visible().x + pointer->x());
}

void GraphScrollArea::keep_inside() {
    const double most_right_gap = std::max(0.0, m_frame.width - viewport()->width());
    m_right_gap = std::clamp(m_right_gap, 0.0, most_right_gap);
    const double most_vertical = std::max(0.0, (m_frame.height - viewport()->height()) / 2);
    m_above_center = std::clamp(m_above_center, -most_vertical, most_vertical);
}

void GraphScrollArea::update_scroll_bars() {
    m_setting_bars = true;
    const double across = std::max(0.0, m_frame.width - viewport()->width());
    const double down = std::max(0.0, m_frame.height - viewport()->height());
    const auto set = [](QScrollBar* bar, double length, double position, int page) {
        const double unit = bar_unit(length);
        bar->setRange(0, static_cast<int>(std::lround(length / unit)));
        bar->setPageStep(std::max(1, static_cast<int>(page / unit)));
        bar->setSingleStep(std::max(1, static_cast<int>(page / (20 * unit))));
        bar->setValue(static_cast<int>(std::lround(position / unit)));
    };
    set(horizontalScrollBar(), across, across - m_right_gap, viewport()->width());
    set(verticalScrollBar(), down, down / 2 + m_above_center, viewport()->height());
    m_setting_bars = false;
}

void GraphScrollArea::take_scroll_bars() {
    const double across = std::max(0.0, m_frame.width - viewport()->width());
    const double down = std::max(0.0, m_frame.height - viewport()->height());
    const auto* horizontal = horizontalScrollBar();
    // At its end a bar means the end, whatever was lost by counting in whole steps.
    m_right_gap = horizontal->value() == horizontal->maximum() ? 0 : across - horizontal->value() * bar_unit(across);
    m_above_center = verticalScrollBar()->value() * bar_unit(down) - down / 2;
    keep_inside();
}

void GraphScrollArea::scrollContentsBy(int, int) {
    if (m_setting_bars)
        return;
    take_scroll_bars();
    redraw();
}

void GraphScrollArea::scroll_by(double dx, double dy) {
    m_right_gap -= dx;
    m_above_center += dy;
    keep_inside();
    update_scroll_bars();
    redraw();
}

void GraphScrollArea::scroll_to_newest() {
    scroll_by(m_right_gap, 0);
}

void GraphScrollArea::scroll_to_oldest() {
    scroll_by(-m_frame.width, 0);
}

void GraphScrollArea::scroll_to_zero_line() {
    scroll_by(0, -m_above_center);
}

void GraphScrollArea::draw(Canvas& canvas) {
    m_graph.drawRect(canvas, {0, 0, m_frame.width, m_frame.height}, visible());
}

void GraphScrollArea::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    QtCanvas canvas(painter, viewport()->height(), CanvasColors::from_palette(palette()), &m_canvas_memory);
    draw(canvas);
    paint_pointer_line(painter);
}

void GraphScrollArea::paint_pointer_line(QPainter& painter) const {
    const auto pointer = m_gestures->pointer();
    if (!pointer || m_gestures->is_dragging())
        return;
    QColor faint = palette().color(QPalette::WindowText);
    faint.setAlphaF(0.4F);
    painter.setPen(faint);
    painter.drawLine(QPointF(pointer->x(), 0), QPointF(pointer->x(), viewport()->height()));
}

void GraphScrollArea::resizeEvent(QResizeEvent*) {
    resize_frame();
    Q_EMIT resized();
}

void GraphScrollArea::keyPressEvent(QKeyEvent* event) {
    if (!m_gestures->take_key(*event))
        QAbstractScrollArea::keyPressEvent(event);
}

} // namespace tickervantage
