#include "draw/canvases.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tickervantage {

void RecordedDrawing::replay(Canvas& canvas) const {
    for (const auto& step : m_steps)
        step(canvas);
}

void RecordedDrawing::fill(const Path& path, ColorRole color, FillRule rule) {
    m_steps.emplace_back([=](Canvas& canvas) { canvas.fill(path, color, rule); });
}

void RecordedDrawing::stroke(const Path& path, ColorRole color, double width, Shadow shadow) {
    m_steps.emplace_back([=](Canvas& canvas) { canvas.stroke(path, color, width, shadow); });
}

void RecordedDrawing::stroke(const Path& path, const LineStyle& style) {
    m_steps.emplace_back([=](Canvas& canvas) { canvas.stroke(path, style); });
}

void RecordedDrawing::polyline(std::span<const Point> points, const Ink& ink, double width) {
    m_steps.emplace_back([kept = std::vector(points.begin(), points.end()), ink, width](Canvas& canvas) {
        canvas.polyline(kept, ink, width);
    });
}

void RecordedDrawing::fill_rects(std::span<const Rect> boxes, const Ink& ink) {
    m_steps.emplace_back(
        [kept = std::vector(boxes.begin(), boxes.end()), ink](Canvas& canvas) { canvas.fill_rects(kept, ink); });
}

void RecordedDrawing::fill_polygon(std::span<const Point> corners, const Ink& ink) {
    m_steps.emplace_back(
        [kept = std::vector(corners.begin(), corners.end()), ink](Canvas& canvas) { canvas.fill_polygon(kept, ink); });
}

void RecordedDrawing::begin_layer(Rect area) {
    m_steps.emplace_back([area](Canvas& canvas) { canvas.begin_layer(area); });
}

void RecordedDrawing::end_layer() {
    m_steps.emplace_back([](Canvas& canvas) { canvas.end_layer(); });
}

void RecordedDrawing::text(std::string_view text, Rect box, const TextStyle& style) {
    m_steps.emplace_back([kept = std::string(text), box, style](Canvas& canvas) { canvas.text(kept, box, style); });
}

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
