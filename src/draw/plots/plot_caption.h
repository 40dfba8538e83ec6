// What a picture of a plot needs once it has left its window: what it shows, of when, and which colour is what.
//
// The title and lines stand above the plot, the legend below it. Texts come in the reader's language. Points, y up.
// Plain functions; one thread at a time.
#pragma once

#include "draw/canvas.h"

#include <functional>
#include <string>
#include <vector>

namespace tickervantage {

struct PlotCaption {
    struct Item {
        Color color; // made readable by the canvas
        std::string text;
    };
    std::string title;
    std::vector<std::string> lines;
    std::vector<Item> legend;
};

// What the caption takes of a picture of that width. The widths of letters are taken from the wider among the usual
// fonts: whoever draws with a still wider one sees texts meet, not vanish.
[[nodiscard]] double caption_height(const PlotCaption& caption, double width);

// Draws a plot into those bounds.
using DrawPlot = std::function<void(Canvas&, Rect)>;

// The plot gets what the caption leaves of `bounds`, with its own lower left corner at (0, 0).
void draw_captioned(Canvas& canvas, Rect bounds, const PlotCaption& caption, const DrawPlot& draw);

} // namespace tickervantage
