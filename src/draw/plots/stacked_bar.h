// A whole and its parts: one bar, in which each part is as long as it is large, and below it the parts by name.
// Points, y up. Pure; one thread at a time.
#pragma once

#include "draw/canvas.h"

#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

struct BarPart {
    std::string name; // with its value
    double size = 0;  // of any unit; not below 0
    Color color;      // made readable by the canvas
};

// What title, bar and names take of that width. Names stand in as many columns as there is room for.
[[nodiscard]] double stacked_bar_height(std::span<const BarPart> parts, double width);

void draw_stacked_bar(Canvas& canvas, Rect bounds, std::string_view title, std::span<const BarPart> parts);

} // namespace tickervantage
