#include "draw/plots/performance_graph.h"

#include "draw/canvases.h"
#include "draw/graph_geometry.h"
#include "draw/plots/graph_label.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {

namespace {

constexpr double UPDATE_SECONDS = 15;
constexpr double DEFAULT_XSCALE = 1.0 / 15;
constexpr double ROOM_ABOVE_AND_BELOW = 10;
constexpr double TITLE_WIDTH = 240;
constexpr double TITLE_HEIGHT = 24;
constexpr double TITLE_BELOW_TOP = 10;

double finite_or_zero(double value) {
    return std::isfinite(value) ? value : 0;
}

} // namespace

PerformanceGraph::PerformanceGraph(GraphParts parts)
    : m_parts(std::move(parts)), updatetimer(m_parts.master_timer.make_repeater("PerformanceGraph", Pace::free)) {}

PerformanceGraph::~PerformanceGraph() = default;

void PerformanceGraph::set_vertical_zoom(double zoom) {
    linear_scale = std::exp2(zoom);
    decade_scale = linear_scale * DEFAULT_DECADE;
}

void PerformanceGraph::set_vertical_scale(double scale) {
    yscale = std::pow(10, scale - 3) * 1e9;
}

void PerformanceGraph::set_horizontal_zoom(double zoom) {
    xscale = std::exp2(zoom) * DEFAULT_XSCALE;
}

void PerformanceGraph::awakeFromNib() {
    if (paused)
        start_timer();
    paused = false;
}

void PerformanceGraph::pause(bool pausing) {
    if (pausing && !paused) {
        updatetimer->stop();
        pauseTime = m_parts.now();
    } else if (!pausing && paused) {
        start_timer();
    }
    paused = pausing;
}

void PerformanceGraph::start_timer() {
    updatetimer->start(UPDATE_SECONDS, [this] {
        if (m_parts.redraw)
            m_parts.redraw();
    });
}

void PerformanceGraph::drawRect(Canvas& canvas, Rect bounds, Rect visible) {
    ShiftedCanvas frame(canvas, {visible.x, visible.y});
    const Point origin = time_origin(bounds);
    frame.begin_layer(visible);
    frame.fill_rects(std::span(&visible, 1), ColorRole::text_background);
    drawData(frame, origin, visible);
    frame.end_layer();
    drawAxes(frame, origin, bounds, visible);
    draw_title(frame, visible);
}

// The title's box is as wide as any title; a title that fills less of it stands in its middle.
void PerformanceGraph::draw_title(Canvas& canvas, Rect visible) const {
    const Rect box = integral(
        {visible.center().x - TITLE_WIDTH / 2, upper_edge(visible) - TITLE_BELOW_TOP, TITLE_WIDTH, TITLE_HEIGHT});
    const double height = 2 * TEXT_MIDDLE * TITLE_SIZE;
    canvas.text(title, {box.x, box.y - height / 2, box.width, height},
                {.size = TITLE_SIZE, .color = labelColor, .align = TextAlign::center});
}

void PerformanceGraph::drawAxes(Canvas& canvas, Point origin, Rect bounds, Rect visible) const {
    draw_axes(canvas,
              {.bounds = bounds,
               .visible = visible,
               .time = right_end(),
               .xscale = xscale,
               .right_margin = static_cast<double>(xaxis_offset),
               .values = value_scale(),
               .color = axesColor,
               .zone = m_parts.zone},
              origin);
}

Rect PerformanceGraph::resizeFrame(Rect frame, Rect visible) const {
    return resized_frame(frame, visible, dataTimespan() * xscale + xaxis_offset, dataRange());
}

Rect resized_frame(Rect frame, Rect visible, double data_width, OffsetRange range) {
    const double highest = std::max(std::abs(finite_or_zero(range.low)), std::abs(finite_or_zero(range.high)));
    const double width = std::max(finite_or_zero(data_width), visible.width);
    const double height = std::max(2 * highest + ROOM_ABOVE_AND_BELOW, visible.height);
    return {frame.x - (width - frame.width), frame.y - (height - frame.height), width, height};
}

double PerformanceGraph::right_end() const {
    return paused ? pauseTime : m_parts.now();
}

Point PerformanceGraph::time_origin(Rect bounds) const {
    return {bounds.x + bounds.width - xaxis_offset, bounds.y + bounds.height * 0.5};
}

ValueScale PerformanceGraph::value_scale() const {
    return {.use_logscale = use_logscale, .yscale = yscale, .linear_scale = linear_scale, .decade_scale = decade_scale};
}

void PerformanceGraph::drawData(Canvas&, Point, Rect) {}

double PerformanceGraph::dataTimespan() const {
    return 0;
}

OffsetRange PerformanceGraph::dataRange() const {
    return {};
}

} // namespace tickervantage
