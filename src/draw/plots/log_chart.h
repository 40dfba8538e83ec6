// A chart over a logarithmic axis: one panel or several above each other, each with curves, bands, marks with error
// bars, level lines and flags.
//
// The record says all; drawing keeps nothing. Texts come in the reader's language. Points, y up. Pure functions, one
// thread at a time.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/log_axis.h"
#include "draw/plots/value_axis.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

enum class MarkShape : unsigned char { none, dot, circle, diamond, square, triangle, inverted_triangle };

struct ChartPoint {
    double x = 0;
    double y = 0;
    std::optional<double> low = {};
    std::optional<double> high = {};
    MarkShape shape = MarkShape::none;
    bool is_hollow = false;
};

struct ChartSeries {
    std::string name = {};
    Ink ink = {};
    std::vector<ChartPoint> points = {}; // from left to right
    bool has_line = true;
    bool is_dashed = false;
    bool has_band = false; // between the lower and upper limits
    bool has_bars = false; // likewise, upright at each point
    bool is_told = true;   // can be pointed at
};

struct ChartLevel { // all over the panel
    double y = 0;
    std::string text = {};
    Ink ink = {};
};

struct ChartFlag { // what stands at a place
    double x = 0;
    double y = 0;
    std::string text = {};
};

struct ChartPanel {
    std::string title = {};
    AxisUnit unit = AxisUnit::none;
    AxisShape shape = AxisShape::logarithmic;
    std::vector<ChartSeries> series = {};
    std::vector<ChartLevel> levels = {};
    std::vector<ChartFlag> flags = {};
    std::optional<AxisSpan> span = {}; // none: what the series need
};

struct LogChart {
    LogAxisKind axis = LogAxisKind::duration;
    double from = 1; // what is in sight: each panel shows what its curves do there
    double to = 10;
    std::string axis_title = {};
    bool has_periods = false; // an upper axis of them, over frequencies
    std::vector<ChartPanel> panels = {};
    std::optional<double> upright = {}; // a line over all panels
    std::string decimal_point = ".";
};

void draw_chart(Canvas& canvas, Rect bounds, const LogChart& chart);

// A point of one of the curves.
struct ChartPlace {
    std::size_t panel = 0;
    std::size_t series = 0;
    std::size_t point = 0;
    friend bool operator==(const ChartPlace&, const ChartPlace&) = default;
};

[[nodiscard]] const ChartPoint& point_at(const LogChart& chart, const ChartPlace& place);

// The level axis, as it is drawn.
[[nodiscard]] LogAxis level_axis(const LogChart& plot, Rect bounds);

// The point in sight nearest to a place in a panel; none beside the panels and without points.
[[nodiscard]] std::optional<ChartPlace> nearest(const LogChart& chart, Rect bounds, Point at);

// A point `steps` further on its curve, held at the ends; of none the first one. And the one above or below it.
[[nodiscard]] std::optional<ChartPlace> moved(const LogChart& chart, const std::optional<ChartPlace>& from, int steps);
[[nodiscard]] std::optional<ChartPlace> on_next_curve(const LogChart& chart, const ChartPlace& from, int steps);

// A ring about the point, and lines to both axes; nothing of a point out of sight.
void draw_pointer(Canvas& canvas, Rect bounds, const LogChart& chart, const ChartPlace& place);

// The shape alone, as a table shows it.
[[nodiscard]] const char* sign_of(MarkShape shape, bool is_hollow);

} // namespace tickervantage
