#include "draw/recorded_drawing.h"

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

} // namespace tickervantage
