// Lines and shapes cut off at a box. Points, y up; pure functions.
#pragma once

#include "draw/canvas.h"

#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

// The parts of the line through all points that lie in the box. Points that are not finite interrupt the line.
[[nodiscard]] std::vector<std::vector<Point>> clipped_line(std::span<const Point> points, Rect box);

// The part of the closed shape that lies in the box; empty when none does. All corners are finite.
[[nodiscard]] std::vector<Point> clipped_polygon(std::span<const Point> corners, Rect box);

// The part of the box that lies in the other; none when none does.
[[nodiscard]] std::optional<Rect> clipped_box(Rect box, Rect limits);

} // namespace tickervantage
