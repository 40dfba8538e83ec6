// A window onto a drawing: what is drawn at `corner` appears at the lower left corner of the canvas behind it.
//
// A graph's frame may be a thousand million points wide, more than any toolkit counts; this way only coordinates near
// what is in sight reach the canvas. Borrows the canvas.
#pragma once

#include "draw/canvas.h"

namespace tickervantage {

class ShiftedCanvas : public Canvas {
public:
    ShiftedCanvas(Canvas& canvas, Point corner) : m_canvas(canvas), m_corner(corner) {}

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void fill_columns(Point origin, double column_width, std::span<const ColumnSpan> spans, const Ink& ink) override {
        m_canvas.fill_columns(shifted(origin), column_width, spans, ink);
    }
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override;
    void begin_layer(Rect area) override { m_canvas.begin_layer(shifted(area)); }
    void end_layer() override { m_canvas.end_layer(); }
    [[nodiscard]] Color readable(const Color& line) const override { return m_canvas.readable(line); }
    [[nodiscard]] double pixel() const override { return m_canvas.pixel(); }
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    [[nodiscard]] Point shifted(Point point) const { return {point.x - m_corner.x, point.y - m_corner.y}; }
    [[nodiscard]] Rect shifted(Rect box) const;
    [[nodiscard]] Path shifted(Path path) const;

    Canvas& m_canvas;
    Point m_corner;
};

} // namespace tickervantage
