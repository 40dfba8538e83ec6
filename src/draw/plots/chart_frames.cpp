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

AxisSpan span_of(const ChartPanel& panel) {
    if (panel.span)
        return *panel.span;
    AxisSpan span{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const ChartSeries& series : panel.series)
        for (const ChartPoint& point : series.points) {
            widen(span, point.y, panel.shape);
            widen(span, point.low.value_or(point.y), panel.shape);
            widen(span, point.high.value_or(point.y), panel.shape);
        }
    for (const ChartLevel& level : panel.levels)
        widen(span, level.y, panel.shape);
    for (const ChartFlag& flag : panel.flags)
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
        const AxisSpan span = span_of(chart.panels[at]);
        Frame frame{{bounds.x + LEFT, bottom, std::max(1.0, bounds.width - LEFT - RIGHT), std::max(1.0, height - top)},
                    ValueAxis(chart.panels[at].unit, chart.panels[at].shape, span, span.low)};
        frame.axis.place_between(frame.area.y, upper_edge(frame.area));
        frames.push_back(frame);
    }
    return frames;
}

LogAxis level_axis(const LogChart& chart, Rect bounds) {
    return {chart.axis, chart.from, chart.to, bounds.x + LEFT,
            bounds.x + LEFT + std::max(1.0, bounds.width - LEFT - RIGHT)};
}

} // namespace tickervantage::chart
