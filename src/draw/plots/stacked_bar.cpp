#include "draw/plots/stacked_bar.h"

#include "draw/plots/graph_label.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double BAR = 14;     // its height
constexpr double LINE = 18;    // of names
constexpr double SWATCH = 10;  // side
constexpr double GAP = 6;      // between a swatch and its name
constexpr double COLUMN = 200; // the least room that a name is given
constexpr double TEXT_SIZE = 12;

std::size_t columns_in(std::span<const BarPart> parts, double width) {
    const auto fitting = static_cast<std::size_t>(std::max(1.0, std::floor(width / COLUMN)));
    // Rows as full as each other: two and two, not three and one.
    const std::size_t rows = (parts.size() + fitting - 1) / fitting;
    return rows == 0 ? 1 : (parts.size() + rows - 1) / rows;
}

void draw_bar(Canvas& canvas, const Rect& bar, std::span<const BarPart> parts) {
    double whole = 0;
    for (const BarPart& part : parts)
        whole += part.size;
    canvas.fill_rects(std::span(&bar, 1), Ink(ColorRole::grey, 0.25));
    double before = 0;
    for (const BarPart& part : parts) {
        if (whole <= 0 || part.size <= 0)
            continue;
        const double left = bar.x + bar.width * before / whole;
        before += part.size;
        const Rect piece{left, bar.y, bar.x + bar.width * before / whole - left, bar.height};
        canvas.fill_rects(std::span(&piece, 1), canvas.readable(part.color));
    }
}

} // namespace

double stacked_bar_height(std::span<const BarPart> parts, double width) {
    const std::size_t columns = columns_in(parts, width);
    const std::size_t rows = (parts.size() + columns - 1) / columns;
    return LINE + BAR + GAP + LINE * static_cast<double>(rows);
}

void draw_stacked_bar(Canvas& canvas, Rect bounds, std::string_view title, std::span<const BarPart> parts) {
    drawLabel(canvas, title, TEXT_SIZE, ColorRole::text, bounds.x, bounds.y + bounds.height - LINE / 2, 1);
    const double top = bounds.y + bounds.height - LINE;
    draw_bar(canvas, {bounds.x, top - BAR, bounds.width, BAR}, parts);
    const std::size_t columns = columns_in(parts, bounds.width);
    const double column_width = bounds.width / static_cast<double>(columns);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const double left = bounds.x + column_width * static_cast<double>(i % columns);
        const std::size_t row = i / columns;
        const double middle = top - BAR - GAP - LINE * (static_cast<double>(row) + 0.5);
        const Rect swatch{left, middle - SWATCH / 2, SWATCH, SWATCH};
        canvas.fill_rects(std::span(&swatch, 1), canvas.readable(parts[i].color));
        drawLabel(canvas, parts[i].name, TEXT_SIZE, ColorRole::text, left + SWATCH + GAP, middle, 1);
    }
}

} // namespace tickervantage
