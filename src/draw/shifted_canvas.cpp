#include "draw/shifted_canvas.h"

#include <algorithm>
#include <iterator>

namespace tickervantage {

void ShiftedCanvas::fill(const Path& path, ColorRole color, FillRule rule) {
    m_canvas.fill(shifted(path), color, rule);
}

void ShiftedCanvas::stroke(const Path& path, ColorRole color, double width, Shadow shadow) {
    m_canvas.stroke(shifted(path), color, width, shadow);
}

void ShiftedCanvas::stroke(const Path& path, const LineStyle& style) {
    m_canvas.stroke(shifted(path), style);
}

void ShiftedCanvas::polyline(std::span<const Point> points, const Ink& ink, double width) {
    std::vector<Point> moved;
    moved.reserve(points.size());
    std::ranges::transform(points, std::back_inserter(moved), [this](Point point) { return shifted(point); });
    m_canvas.polyline(moved, ink, width);
}

void ShiftedCanvas::fill_rects(std::span<const Rect> boxes, const Ink& ink) {
    std::vector<Rect> moved;
    moved.reserve(boxes.size());
    std::ranges::transform(boxes, std::back_inserter(moved), [this](Rect box) { return shifted(box); });
    m_canvas.fill_rects(moved, ink);
}

void ShiftedCanvas::fill_polygon(std::span<const Point> corners, const Ink& ink) {
    std::vector<Point> moved;
    moved.reserve(corners.size());
    std::ranges::transform(corners, std::back_inserter(moved), [this](Point point) { return shifted(point); });
    m_canvas.fill_polygon(moved, ink);
}

void ShiftedCanvas::text(std::string_view text, Rect box, const TextStyle& style) {
    m_canvas.text(text, shifted(box), style);
}

Rect ShiftedCanvas::shifted(Rect box) const {
    return {box.x - m_corner.x, box.y - m_corner.y, box.width, box.height};
}

Path ShiftedCanvas::shifted(Path path) const {
    for (auto& element : path.elements) {
        element.from = shifted(element.from);
        element.to = shifted(element.to);
        element.rect = shifted(element.rect);
    }
    return path;
}

} // namespace tickervantage
