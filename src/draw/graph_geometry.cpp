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

} // namespace tickervantage
