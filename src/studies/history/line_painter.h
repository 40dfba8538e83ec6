// Draws values over time into one panel: each as a point while they are few, and by columns of pixels when they are
// many, with their extremes, so that no spike is lost. Where values are missing for much longer than usual the line is
// interrupted. Points, y up; all in the panel's area. One thread.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/timed_values.h"
#include "draw/plots/value_axis.h"

#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace tickervantage {

// The columns of pixels of a panel, at places on the time axis that stay the same while it is moved.
struct ColumnGrid {
    Rect area;
    TimeRange range; // of the area
    double step = 1; // s a column
    std::int64_t first = 0;
    std::size_t count = 0;
    double pixel = 1; // points a column

    ColumnGrid(Rect panel, const TimeRange& in_sight, double pixel_width);
    [[nodiscard]] TimeRange columns_range() const;
    [[nodiscard]] double place_of(double time) const; // x
    [[nodiscard]] double time_at(double x) const;
    [[nodiscard]] double left_of(std::size_t column) const; // x
};

// What most of a column's values are like.
struct ValueSpread {
    float low = 0; // 5th percentile
    float median = 0;
    float high = 0; // 95th
};

// Spreads of columns, kept while the axis is moved: they take a look at every value.
class SpreadMemory {
public:
    [[nodiscard]] const std::vector<ValueSpread>& spreads(const TimedValues& values, unsigned version,
                                                          const ColumnGrid& grid, std::span<const ValueColumn> columns);

private:
    struct Kept {
        double step = 0;
        unsigned version = 0;
        std::int64_t first = 0;
        std::vector<ValueSpread> spreads;
    };
    std::map<const TimedValues*, Kept> m_kept;
    std::vector<double> m_values;
};

class LinePainter {
public:
    LinePainter(Canvas& canvas, const ColumnGrid& grid, const ValueAxis& axis)
        : m_canvas(canvas), m_grid(grid), m_axis(axis) {}

    // A line through the means, over a faint band from the lowest to the highest. `beside`: how many such bands lie
    // over each other.
    void draw_line(const TimedValues& values, std::span<const ValueColumn> columns, const Ink& ink,
                   std::size_t beside = 1);
    // Points, or the median over a band from the 5th to the 95th percentile, itself over a fainter one of all.
    void draw_spread(const TimedValues& values, std::span<const ValueColumn> columns,
                     std::span<const ValueSpread> spreads, const Ink& ink);
    // From the lowest to the highest; `both_signs`: from the highest below zero to the highest above.
    void draw_band(const TimedValues& values, std::span<const ValueColumn> columns, bool both_signs, const Ink& ink);

    // Whether there are so few values that each is drawn by itself.
    [[nodiscard]] static bool are_few(std::span<const ValueColumn> columns);

private:
    struct Node {
        double x;
        double low;
        double middle;
        double high;
        bool begins; // after a gap
    };

    [[nodiscard]] std::vector<Node> single_nodes(const TimedValues& values, std::span<const ValueColumn> columns) const;
    [[nodiscard]] std::vector<Node> column_nodes(const TimedValues& values, std::span<const ValueColumn> columns) const;
    void draw_nodes(std::span<const Node> nodes, const Ink& ink, double width) const; // a line through the middles
    void draw_dots(std::span<const Node> nodes, const Ink& ink) const;
    void draw_bars(std::span<const Node> nodes, const Ink& ink) const;
    void fill_between(std::span<const Node> nodes, const Ink& ink) const;
    void fill_piece(std::span<const Node> nodes, const Ink& ink) const;
    [[nodiscard]] double y(double value) const;

    Canvas& m_canvas;
    const ColumnGrid& m_grid;
    const ValueAxis& m_axis;
};

} // namespace tickervantage
