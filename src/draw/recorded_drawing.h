// A canvas that keeps what is drawn on it, to be drawn again on another canvas: elsewhere, later, on another thread.
//
// Points, colours by role and texts are kept as they came; what they look like is decided when they are drawn again.
// One thread at a time while it is drawn on; afterwards any number may replay it.
#pragma once

#include "draw/canvas.h"

#include <functional>
#include <utility>
#include <vector>

namespace tickervantage {

class RecordedDrawing : public Canvas {
public:
    // `pixel` and `readable`: of the canvas that it is meant for; without the latter own colours stay as they are.
    explicit RecordedDrawing(double pixel, std::function<Color(const Color&)> readable = {})
        : m_pixel(pixel), m_readable(std::move(readable)) {}

    void replay(Canvas& canvas) const;

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override;
    void begin_layer(Rect area) override;
    void end_layer() override;
    [[nodiscard]] Color readable(const Color& line) const override { return m_readable ? m_readable(line) : line; }
    [[nodiscard]] double pixel() const override { return m_pixel; }
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    double m_pixel;
    std::function<Color(const Color&)> m_readable;
    std::vector<std::function<void(Canvas&)>> m_steps;
};

} // namespace tickervantage
