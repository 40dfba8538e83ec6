#include "draw/canvas.h"

#include "draw/canvas_pixels.h"

#include <cmath>

namespace tickervantage {

void Path::add_line(Point from, Point to) {
    elements.push_back({.kind = Element::Kind::line, .from = from, .to = to, .rect = {}, .radius = {}});
}

void Path::add_ellipse(Rect box) {
    elements.push_back({.kind = Element::Kind::ellipse, .from = {}, .to = {}, .rect = box, .radius = {}});
}

void Path::add_rounded_rect(Rect box, double radius_x, double radius_y) {
    elements.push_back(
        {.kind = Element::Kind::rounded_rect, .from = {}, .to = {}, .rect = box, .radius = {radius_x, radius_y}});
}

std::optional<CanvasPixels> Canvas::begin_pixels(Rect /*area*/) {
    return std::nullopt;
}

void Canvas::fill_columns(Point origin, double column_width, std::span<const ColumnSpan> spans, const Ink& ink) {
    std::vector<Rect> boxes;
    boxes.reserve(spans.size());
    for (const ColumnSpan& span : spans)
        boxes.push_back({origin.x + static_cast<double>(span.column) * column_width, origin.y + span.low, column_width,
                         span.high - span.low});
    fill_rects(boxes, ink);
}

Point polar(Point center, double radius, double angle) {
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

} // namespace tickervantage
