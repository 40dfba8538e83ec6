#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

// Narrows [enter, leave], the part of a line in sight, to where `at + share * step` lies from `low` to `high`.
[[nodiscard]] bool narrow(double at, double step, double low, double high, double& enter, double& leave) {
    if (step == 0)
        return at >= low && at <= high;
    const auto [first, last] = std::minmax({(low - at) / step, (high - at) / step});
    enter = std::max(enter, first);
    leave = std::min(leave, last);
    return enter <= leave;
}

bool is_finite(Point point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// One of the box's edges: `distance` is not negative on the inner side.
struct Edge {
    double Point::*coordinate;
    double at;
    double inwards; // 1: the inside has larger coordinates, -1: smaller

    [[nodiscard]] double distance(Point point) const { return (point.*coordinate - at) * inwards; }
};

Point crossing(Point from, Point to, const Edge& edge) {
    const double outside = edge.distance(from);
    const double part = outside / (outside - edge.distance(to));
    Point result{from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
    result.*edge.coordinate = edge.at;
    return result;
}

// Sutherland and Hodgman, "Reentrant polygon clipping" (1974): one edge after the other.
std::vector<Point> cut(const std::vector<Point>& corners, const Edge& edge) {
    std::vector<Point> result;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point before = corners[i == 0 ? corners.size() - 1 : i - 1];
        const bool was_inside = edge.distance(before) >= 0;
        const bool is_inside = edge.distance(corners[i]) >= 0;
        if (was_inside != is_inside)
            result.push_back(crossing(before, corners[i], edge));
        if (is_inside)
            result.push_back(corners[i]);
    }
    return result;
}

} // namespace

bool contains(Rect box, Point point) {
    return point.x >= box.x && point.x < right_edge(box) && point.y >= box.y && point.y < upper_edge(box);
}

Rect grown(Rect box, double margin) {
    return {box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin};
}

Rect integral(Rect box) {
    const double left = std::floor(box.x);
    const double lower = std::floor(box.y);
    return {left, lower, std::ceil(right_edge(box)) - left, std::ceil(upper_edge(box)) - lower};
}

std::optional<Segment> clipped(Segment line, Rect box) {
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    double enter = 0;
    double leave = 1;
    if (!narrow(line.from.x, dx, box.x, right_edge(box), enter, leave) ||
        !narrow(line.from.y, dy, box.y, upper_edge(box), enter, leave))
        return std::nullopt;
    const auto at = [&](double share) {
        return Point{line.from.x + share * dx, line.from.y + share * dy};
    };
    return Segment{enter == 0 ? line.from : at(enter), leave == 1 ? line.to : at(leave)};
}

std::vector<std::vector<Point>> clipped_line(std::span<const Point> points, Rect box) {
    std::vector<std::vector<Point>> lines;
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!is_finite(points[i - 1]) || !is_finite(points[i]))
            continue;
        const auto part = clipped({points[i - 1], points[i]}, box);
        if (!part)
            continue;
        if (lines.empty() || lines.back().back() != part->from)
            lines.push_back({part->from});
        lines.back().push_back(part->to);
    }
    return lines;
}

std::vector<Point> clipped_polygon(std::span<const Point> corners, Rect box) {
    std::vector<Point> result(corners.begin(), corners.end());
    for (const Edge& edge : {Edge{&Point::x, box.x, 1}, Edge{&Point::x, right_edge(box), -1}, Edge{&Point::y, box.y, 1},
                             Edge{&Point::y, upper_edge(box), -1}})
        result = cut(result, edge);
    return result;
}

std::optional<Rect> clipped_box(Rect box, Rect limits) {
    const double left = std::max(box.x, limits.x);
    const double bottom = std::max(box.y, limits.y);
    const double width = std::min(right_edge(box), right_edge(limits)) - left;
    const double height = std::min(upper_edge(box), upper_edge(limits)) - bottom;
    return width > 0 && height > 0 ? std::optional(Rect{left, bottom, width, height}) : std::nullopt;
}

} // namespace tickervantage
