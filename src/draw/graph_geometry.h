// Boxes, lines and shapes of the graph, and what a box leaves of them, as plain arithmetic. Points, y up.
#pragma once

#include "draw/canvas.h"

#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

[[nodiscard]] inline double right_edge(Rect box) {
    return box.x + box.width;
}
[[nodiscard]] inline double upper_edge(Rect box) {
    return box.y + box.height;
}

// The left and the lower edge belong to the box, the right and the upper one do not.
[[nodiscard]] bool contains(Rect box, Point point);

// The box, larger by `margin` on each side.
[[nodiscard]] Rect grown(Rect box, double margin);

// The smallest box with whole-numbered edges around the box.
[[nodiscard]] Rect integral(Rect box);

struct Segment {
    Point from;
    Point to;
};

// The part of the line that lies in the box; none when no part does.
[[nodiscard]] std::optional<Segment> clipped(Segment line, Rect box);

// The parts of the line through all points that lie in the box. Points that are not finite interrupt the line.
[[nodiscard]] std::vector<std::vector<Point>> clipped_line(std::span<const Point> points, Rect box);

// The part of the closed shape that lies in the box; empty when none does. All corners are finite.
[[nodiscard]] std::vector<Point> clipped_polygon(std::span<const Point> corners, Rect box);

// The part of the box that lies in the other; none when none does.
[[nodiscard]] std::optional<Rect> clipped_box(Rect box, Rect limits);

} // namespace tickervantage
