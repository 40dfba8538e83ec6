// How a chart's room is shared among its panels. Inside of the chart's drawing and pointing only.
#pragma once

#include "draw/plots/log_chart.h"

#include <vector>

namespace tickervantage::chart {

inline constexpr double LEFT = 58; // room for labels
inline constexpr double RIGHT = 16;
inline constexpr double BELOW = 36;
inline constexpr double TITLE = 20;
inline constexpr double PERIODS = 6; // an upper axis
inline constexpr double GAP = 8;

struct Frame {
    Rect area;
    ValueAxis axis;
};

// One for each panel, from above downwards.
[[nodiscard]] std::vector<Frame> frames_of(const LogChart& chart, Rect bounds);

[[nodiscard]] inline bool is_in_sight(const LogChart& chart, double x) {
    return chart.from <= x && x <= chart.to;
}

[[nodiscard]] inline bool is_pointable(const ChartSeries& series) {
    return series.is_told && !series.points.empty();
}

} // namespace tickervantage::chart
