// One line of text on the graph.
#pragma once

#include "draw/canvas.h"

#include <string_view>

namespace tickervantage {

inline constexpr double LABEL_SIZE = 10;
inline constexpr double TITLE_SIZE = 13;

// Draws the text with its left edge at x and its middle at the height y, whatever the font. A text is as wide as it is,
// so that its alignment shows only where it has lines of different lengths.
void drawLabel(Canvas& canvas, std::string_view text, double size, const Ink& color, double x, double y, double alpha);

} // namespace tickervantage
