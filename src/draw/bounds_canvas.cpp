#include "draw/bounds_canvas.h"

#include <algorithm>

namespace tickervantage {

Rect BoundsCanvas::bounds(double margin) const {
    if (!m_low)
        return {};
    return {m_low->x - margin, m_low->y - margin, m_high.x - m_low->x + 2 * margin, m_high.y - m_low->y + 2 * margin};
}

void BoundsCanvas::add(Point point) {
    if (!m_low)
        m_low = m_high = point;
    m_low = {std::min(m_low->x, point.x), std::min(m_low->y, point.y)};
    m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
}

void BoundsCanvas::add(Rect box) {
    add(Point{box.x, box.y});
    add(Point{box.x + box.width, box.y + box.height});
}

void BoundsCanvas::add(const Path& path, double around) {
    for (const auto& element : path.elements) {
        if (element.kind != Path::Element::Kind::line) {
            add(Rect{element.rect.x - around, element.rect.y - around, element.rect.width + 2 * around,
                     element.rect.height + 2 * around});
            continue;
        }
        for (const auto& end : {element.from, element.to})
            add(Rect{end.x - around, end.y - around, 2 * around, 2 * around});
    }
}

void BoundsCanvas::fill(const Path& path, ColorRole, FillRule) {
    add(path, 0);
}

void BoundsCanvas::stroke(const Path& path, ColorRole, double width, Shadow) {
    add(path, width / 2);
}

void BoundsCanvas::stroke(const Path& path, const LineStyle& style) {
    add(path, style.width / 2);
}

void BoundsCanvas::polyline(std::span<const Point> points, const Ink&, double width) {
    for (const auto& point : points)
        add(Rect{point.x - width / 2, point.y - width / 2, width, width});
}

void BoundsCanvas::fill_rects(std::span<const Rect> boxes, const Ink&) {
    for (const auto& box : boxes)
        add(box);
}

void BoundsCanvas::fill_polygon(std::span<const Point> corners, const Ink&) {
    for (const auto& corner : corners)
        add(corner);
}

void BoundsCanvas::text(std::string_view, Rect box, const TextStyle&) {
    add(box);
}

} // namespace tickervantage
