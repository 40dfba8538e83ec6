#include "draw/plots/chart_frames.h"

#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage::chart {
namespace {

constexpr double MARGIN = 0.06; // of the span, above and below what is shown

// Values that the axis has to hold.
void widen(AxisSpan& span, double value, AxisShape shape) {
    if (!std::isfinite(value) || (shape == AxisShape::logarithmic && value <= 0))
        return;
    span.low = std::min(span.low, value);
    span.high = std::max(span.high, value);
}

AxisSpan with_margins(AxisSpan span, AxisShape shape) {
    if (!(span.low <= span.high))
        return shape == AxisShape::logarithmic ? AxisSpan{1e-9, 1e-6} : AxisSpan{0, 1};
    if (shape != AxisShape::logarithmic) {
        const double margin = std::max((span.high - span.low) * MARGIN, std::abs(span.high) * 1e-6);
        return {span.low - margin, span.high + margin};
    }
    const double times = std::max(std::pow(span.high / span.low, MARGIN), 1.3);
    return {span.low / times, span.high * times};
}

// Where a curve is between two of its points.
double between(double from, double to, double share, AxisShape shape) {
    return shape == AxisShape::logarithmic && from > 0 && to > 0 ? from * std::pow(to / from, share)
                                                                 : std::lerp(from, to, share);
}

// The points of a curve in sight, and where it comes in and goes out.
void widen(AxisSpan& span, const ChartSeries& series, const LogChart& chart, AxisShape shape) {
    for (std::size_t at = 0; at < series.points.size(); ++at) {
        const ChartPoint& point = series.points[at];
        if (is_in_sight(chart, point.x))
            for (const double value : {point.y, point.low.value_or(point.y), point.high.value_or(point.y)})
                widen(span, value, shape);
        if (at == 0 || !(series.has_line || series.has_band))
            continue;
        const ChartPoint& before = series.points[at - 1];
        for (const double edge : {chart.from, chart.to}) {
            if (!(before.x < edge && edge < point.x))
                continue;
            const double share = std::log(edge / before.x) / std::log(point.x / before.x);
            widen(span, between(before.y, point.y, share, shape), shape);
            widen(span, between(before.low.value_or(before.y), point.low.value_or(point.y), share, shape), shape);
            widen(span, between(before.high.value_or(before.y), point.high.value_or(point.y), share, shape), shape);
        }
    }
}

AxisSpan span_of(const ChartPanel& panel, const LogChart& chart) {
    if (panel.span)
        return *panel.span;
    AxisSpan span{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const ChartSeries& series : panel.series)
        widen(span, series, chart, panel.shape);
    for (const ChartLevel& level : panel.levels)
        widen(span, level.y, panel.shape);
    for (const ChartFlag& flag : panel.flags)
        if (is_in_sight(chart, flag.x))
            widen(span, flag.y, panel.shape);
    span = with_margins(span, panel.shape);
    if (!panel.flags.empty() && panel.shape == AxisShape::linear)
        span.high += (span.high - span.low) * MARGIN; // room for their words
    return span;
}

} // namespace

std::vector<Frame> frames_of(const LogChart& chart, Rect bounds) {
    std::vector<Frame> frames;
    const auto count = static_cast<double>(chart.panels.size());
    const double above = !chart.has_periods ? 0 : PERIODS;
    const double height = (bounds.height - BELOW - above - GAP) / std::max(count, 1.0);
    for (std::size_t at = 0; at < chart.panels.size(); ++at) {
        const double bottom = bounds.y + BELOW + (count - 1 - static_cast<double>(at)) * height;
        const double top = at == 0 ? TITLE + (!chart.has_periods ? 0 : GAP) : TITLE;
        const AxisSpan span = span_of(chart.panels[at], chart);
        Frame frame{{bounds.x + LEFT, bottom, std::max(1.0, bounds.width - LEFT - RIGHT), std::max(1.0, height - top)},
                    ValueAxis(chart.panels[at].unit, chart.panels[at].shape, span, span.low)};
        frame.axis.place_between(frame.area.y, upper_edge(frame.area));
        frames.push_back(frame);
    }
    return frames;
}

} // namespace tickervantage::chart

namespace tickervantage {

LogAxis level_axis(const LogChart& plot, Rect bounds) {
    using namespace chart;
    return {plot.axis, plot.from, plot.to, bounds.x + LEFT,
            bounds.x + LEFT + std::max(1.0, bounds.width - LEFT - RIGHT)};
}

} // namespace tickervantage
