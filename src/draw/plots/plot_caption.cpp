#include "draw/plots/plot_caption.h"

#include "draw/canvases.h"
#include "draw/graph_geometry.h"
#include "draw/plots/graph_label.h"

#include <algorithm>
#include <string_view>

namespace tickervantage {
namespace {

constexpr double LETTER = 0.64; // width of a letter, in sizes
constexpr double MARGIN = 8;
constexpr double TITLE_LINE = 20;
constexpr double LINE = 15;
constexpr double SWATCH = 10;
constexpr double SWATCH_GAP = 5;
constexpr double ITEM_GAP = 16;

bool begins_letter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

double width_of(std::string_view text, double size) {
    return LETTER * size * static_cast<double>(std::ranges::count_if(text, begins_letter));
}

// A path tells most at its end.
std::string fitted(std::string_view text, double size, double width) {
    if (width_of(text, size) <= width)
        return std::string(text);
    while (!text.empty() && width_of(text, size) + LETTER * size > width) {
        text.remove_prefix(1);
        while (!text.empty() && !begins_letter(text.front()))
            text.remove_prefix(1);
    }
    return "…" + std::string(text);
}

double width_of(const PlotCaption::Item& item) {
    return SWATCH + SWATCH_GAP + width_of(item.text, LABEL_SIZE) + ITEM_GAP;
}

// Calls `place` with each item, its row and how far it stands from the left. The number of rows.
template <typename Place>
int lay_out(const PlotCaption& caption, double width, const Place& place) {
    int row = 0;
    double x = MARGIN;
    for (const auto& item : caption.legend) {
        if (x > MARGIN && x + width_of(item) - ITEM_GAP > width - MARGIN) {
            ++row;
            x = MARGIN;
        }
        place(item, row, x);
        x += width_of(item);
    }
    return caption.legend.empty() ? 0 : row + 1;
}

double height_above(const PlotCaption& caption) {
    return MARGIN + TITLE_LINE + LINE * static_cast<double>(caption.lines.size());
}

double height_below(const PlotCaption& caption, double width) {
    const int rows = lay_out(caption, width, [](const auto&, int, double) {});
    return rows == 0 ? 0 : MARGIN + LINE * rows;
}

void draw_lines(Canvas& canvas, Rect bounds, const PlotCaption& caption) {
    const double width = bounds.width - 2 * MARGIN;
    double middle = upper_edge(bounds) - MARGIN / 2 - TITLE_LINE / 2;
    const auto draw = [&](const std::string& text, double size) {
        drawLabel(canvas, fitted(text, size, width), size, ColorRole::text, bounds.x + MARGIN, middle, 1);
    };
    draw(caption.title, TITLE_SIZE);
    middle -= (TITLE_LINE - LINE) / 2;
    for (const auto& line : caption.lines) {
        middle -= LINE;
        draw(line, LABEL_SIZE);
    }
}

void draw_legend(Canvas& canvas, Rect bounds, const PlotCaption& caption, double height) {
    (void)lay_out(caption, bounds.width, [&](const PlotCaption::Item& item, int row, double x) {
        const double middle = bounds.y + height - MARGIN / 2 - LINE * (row + 0.5);
        const Rect swatch{bounds.x + x, middle - SWATCH / 2, SWATCH, SWATCH};
        canvas.fill_rects(std::span(&swatch, 1), canvas.readable(item.color));
        drawLabel(canvas, item.text, LABEL_SIZE, ColorRole::text, swatch.x + SWATCH + SWATCH_GAP, middle, 1);
    });
}

} // namespace

double caption_height(const PlotCaption& caption, double width) {
    return height_above(caption) + height_below(caption, width);
}

void draw_captioned(Canvas& canvas, Rect bounds, const PlotCaption& caption, const DrawPlot& draw) {
    const double below = height_below(caption, bounds.width);
    const double height = std::max(0.0, bounds.height - height_above(caption) - below);
    canvas.fill_rects(std::span(&bounds, 1), ColorRole::text_background);
    ShiftedCanvas plot(canvas, {-bounds.x, -(bounds.y + below)});
    draw(plot, {0, 0, bounds.width, height});
    draw_lines(canvas, bounds, caption);
    draw_legend(canvas, bounds, caption, below);
}

} // namespace tickervantage
