// Boxes and lines of the graph, as plain arithmetic. Points, y up.
#pragma once

#include "draw/canvas.h"

#include <optional>

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

} // namespace tickervantage
