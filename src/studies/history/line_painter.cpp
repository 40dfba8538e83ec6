#include "studies/history/line_painter.h"

#include "base/quantile.h"
#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double faint = 0.28;
constexpr double fainter = 0.13;
constexpr double much_longer = 4; // than usual: a gap
constexpr double dot_radius = 1.8;
constexpr double room_for_dots = 5; // points a value

// Whether a line from one value to the next would hide that nothing is known in between.
bool is_gap(double interval, double usual) {
    return interval > much_longer * usual;
}

} // namespace

ColumnGrid::ColumnGrid(Rect panel, const TimeRange& in_sight, double pixel_width)
    : area(panel), range(in_sight), pixel(pixel_width) {
    step = range.length() * pixel / std::max(panel.width, pixel);
    first = static_cast<std::int64_t>(std::floor(range.from / step));
    count = static_cast<std::size_t>(std::ceil(panel.width / pixel)) + 1;
}

TimeRange ColumnGrid::columns_range() const {
    return {static_cast<double>(first) * step, static_cast<double>(first + static_cast<std::int64_t>(count)) * step};
}

double ColumnGrid::place_of(double time) const {
    return area.x + (time - range.from) / range.length() * area.width;
}

double ColumnGrid::time_at(double x) const {
    return range.from + (x - area.x) / area.width * range.length();
}

double ColumnGrid::left_of(std::size_t column) const {
    return place_of(static_cast<double>(first + static_cast<std::int64_t>(column)) * step);
}

const std::vector<ValueSpread>& SpreadMemory::spreads(const TimedValues& values, unsigned version,
                                                      const ColumnGrid& grid, std::span<const ValueColumn> columns) {
    Kept& kept = m_kept[&values];
    // The same zoom gives a step that differs in its last digits.
    const bool is_usable = kept.version == version && std::abs(kept.step - grid.step) <= grid.step * 1e-12;
    std::vector<ValueSpread> found(columns.size());
    for (std::size_t at = 0; at < columns.size(); ++at) {
        const std::int64_t former = grid.first + static_cast<std::int64_t>(at) - kept.first;
        if (is_usable && former >= 0 && former < static_cast<std::int64_t>(kept.spreads.size())) {
            found[at] = kept.spreads[static_cast<std::size_t>(former)];
            continue;
        }
        m_values.clear();
        for (std::size_t one = columns[at].first; one < columns[at].first + columns[at].count; ++one)
            m_values.push_back(values.mean(one));
        found[at].median = static_cast<float>(quantile(m_values, 0.5));
        found[at].low = static_cast<float>(quantile(m_values, 0.05));
        found[at].high = static_cast<float>(quantile(m_values, 0.95));
    }
    kept = {grid.step, version, grid.first, std::move(found)};
    return kept.spreads;
}

bool LinePainter::are_few(std::span<const ValueColumn> columns) {
    std::size_t count = 0;
    for (const ValueColumn& column : columns)
        count += column.count;
    return count * 2 <= columns.size();
}

double LinePainter::y(double value) const {
    return m_axis.place_of(value);
}

// One beyond each edge, so that lines run on.
std::vector<LinePainter::Node> LinePainter::single_nodes(const TimedValues& values,
                                                         std::span<const ValueColumn> columns) const {
    std::vector<Node> nodes;
    const std::size_t first = columns.front().first;
    const std::size_t end = columns.back().first + columns.back().count;
    double usual = values.usual_interval();
    for (std::size_t at = first == 0 ? 0 : first - 1; at < std::min(end + 1, values.size()); ++at) {
        const TimedExtent value = values.at(at);
        const double interval = at == 0 ? 0 : value.time - values.time(at - 1);
        const double before = at < 2 ? 0 : values.time(at - 1) - values.time(at - 2);
        nodes.push_back({m_grid.place_of(value.time), value.low, value.mean, value.high,
                         nodes.empty() || is_gap(interval, std::max(usual, before))});
    }
    return nodes;
}

std::vector<LinePainter::Node> LinePainter::column_nodes(const TimedValues& values,
                                                         std::span<const ValueColumn> columns) const {
    std::vector<Node> nodes;
    const double gap = std::max(much_longer * values.usual_interval(), 2.5 * m_grid.step);
    double last = 0;
    for (std::size_t at = 0; at < columns.size(); ++at) {
        if (columns[at].count == 0)
            continue;
        const double time = values.time(columns[at].first);
        nodes.push_back({m_grid.left_of(at) + m_grid.pixel / 2, columns[at].low, columns[at].mean, columns[at].high,
                         nodes.empty() || time - last > gap});
        last = values.time(columns[at].first + columns[at].count - 1);
    }
    return nodes;
}

void LinePainter::draw_nodes(std::span<const Node> nodes, const Ink& ink, double width) const {
    std::vector<Point> points;
    const auto flush = [&] {
        for (const auto& part : clipped_line(points, m_grid.area))
            m_canvas.polyline(part, ink, width);
        points.clear();
    };
    for (const Node& node : nodes) {
        if (node.begins)
            flush();
        points.push_back({node.x, y(node.middle)});
    }
    flush();
}

void LinePainter::draw_dots(std::span<const Node> nodes, const Ink& ink) const {
    std::vector<Rect> dots;
    for (const Node& node : nodes)
        if (const Point at{node.x, y(node.middle)}; contains(grown(m_grid.area, 1), at))
            dots.push_back({at.x - dot_radius, at.y - dot_radius, 2 * dot_radius, 2 * dot_radius});
    m_canvas.fill_rects(dots, ink);
}

// Of spans of time that hold more than their mean.
void LinePainter::draw_bars(std::span<const Node> nodes, const Ink& ink) const {
    std::vector<Rect> bars;
    for (const Node& node : nodes) {
        const Rect bar{node.x - dot_radius, y(node.low), 2 * dot_radius, y(node.high) - y(node.low)};
        if (const auto seen = bar.height > 1 ? clipped_box(bar, m_grid.area) : std::nullopt)
            bars.push_back(*seen);
    }
    m_canvas.fill_rects(bars, ink);
}

// One column after the other, up to the next node or to the gap.
void LinePainter::fill_between(std::span<const Node> nodes, const Ink& ink) const {
    std::vector<ColumnSpan> spans;
    const double low = m_grid.area.y;
    const double high = upper_edge(m_grid.area);
    const double left = m_grid.area.x;
    const auto last = static_cast<std::int64_t>(m_grid.area.width / m_grid.pixel) - 1;
    for (std::size_t at = 0; at < nodes.size(); ++at) {
        const auto column = static_cast<std::int64_t>(std::floor((nodes[at].x - left) / m_grid.pixel));
        const bool goes_on = at + 1 < nodes.size() && !nodes[at + 1].begins;
        const auto next =
            goes_on ? static_cast<std::int64_t>(std::floor((nodes[at + 1].x - left) / m_grid.pixel)) : column + 1;
        const double bottom = std::clamp(y(nodes[at].low), low, high);
        const double top = std::clamp(y(nodes[at].high), low, high);
        const double middle = std::clamp((bottom + top) / 2, low + 0.5, high - 0.5); // a line can be seen
        for (auto one = std::max<std::int64_t>(column, 0); one < std::min(next, last + 1); ++one)
            spans.push_back({one, std::min(bottom, middle - 0.5) - low, std::max(top, middle + 0.5) - low});
    }
    m_canvas.fill_columns({left, low}, m_grid.pixel, spans, ink);
}

void LinePainter::fill_piece(std::span<const Node> nodes, const Ink& ink) const {
    std::vector<Point> corners;
    for (const Node& node : nodes)
        corners.push_back({node.x, y(node.high)});
    for (std::size_t at = nodes.size(); at-- > 0;)
        corners.push_back({nodes[at].x, y(nodes[at].low)});
    const auto seen = clipped_polygon(corners, m_grid.area);
    if (seen.size() > 2)
        m_canvas.fill_polygon(seen, ink);
}

void LinePainter::draw_line(const TimedValues& values, std::span<const ValueColumn> columns, const Ink& ink,
                            std::size_t beside) {
    if (values.empty())
        return;
    const Ink band = ink.faded(faint / static_cast<double>(beside));
    if (are_few(columns)) {
        const auto nodes = single_nodes(values, columns);
        draw_bars(nodes, band);
        draw_nodes(nodes, ink, 1.5);
        if (static_cast<double>(nodes.size()) * room_for_dots < m_grid.area.width)
            draw_dots(nodes, ink);
        return;
    }
    const auto nodes = column_nodes(values, columns);
    m_canvas.begin_layer(m_grid.area);
    fill_between(nodes, band);
    draw_nodes(nodes, ink, 1);
    m_canvas.end_layer();
}

void LinePainter::draw_spread(const TimedValues& values, std::span<const ValueColumn> columns,
                              std::span<const ValueSpread> spreads, const Ink& ink) {
    if (values.empty())
        return;
    if (are_few(columns)) {
        const auto nodes = single_nodes(values, columns);
        draw_bars(nodes, ink.faded(faint));
        draw_nodes(nodes, ink.faded(faint), 1);
        draw_dots(nodes, ink);
        return;
    }
    auto nodes = column_nodes(values, columns);
    m_canvas.begin_layer(m_grid.area);
    fill_between(nodes, ink.faded(fainter));
    std::size_t column = 0;
    for (Node& node : nodes) {
        while (columns[column].count == 0)
            ++column;
        node.low = static_cast<double>(spreads[column].low);
        node.middle = static_cast<double>(spreads[column].median);
        node.high = static_cast<double>(spreads[column].high);
        ++column;
    }
    fill_between(nodes, ink.faded(faint));
    draw_nodes(nodes, ink, 1);
    m_canvas.end_layer();
}

void LinePainter::draw_band(const TimedValues& values, std::span<const ValueColumn> columns, bool both_signs,
                            const Ink& ink) {
    if (values.empty())
        return;
    const bool few = are_few(columns);
    auto nodes = few ? single_nodes(values, columns) : column_nodes(values, columns);
    if (both_signs)
        for (Node& node : nodes)
            node.low = -node.high;
    if (!few) {
        m_canvas.begin_layer(m_grid.area);
        fill_between(nodes, ink);
        m_canvas.end_layer();
        return;
    }
    for (std::size_t begin = 0; begin < nodes.size();) {
        std::size_t end = begin + 1;
        while (end < nodes.size() && !nodes[end].begins)
            ++end;
        fill_piece(std::span(nodes).subspan(begin, end - begin), ink);
        begin = end;
    }
}

} // namespace tickervantage
