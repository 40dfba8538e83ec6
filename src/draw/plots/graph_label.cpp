#include "draw/plots/graph_label.h"

namespace tickervantage {

void drawLabel(Canvas& canvas, std::string_view text, double size, const Ink& color, double x, double y, double alpha) {
    // The middle of the text lies TEXT_MIDDLE sizes below its box's upper edge, so this box has it at its own middle.
    const double height = 2 * TEXT_MIDDLE * size;
    canvas.text(text, {x, y - height / 2, 0, height},
                {.size = size, .color = color.faded(alpha), .align = TextAlign::left});
}

} // namespace tickervantage
