// Canvases that hand on what is drawn on them, or only look at it.
#pragma once

#include "draw/canvas.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace tickervantage {

// A canvas that keeps what is drawn on it, to be drawn again on another canvas: elsewhere, later, on another thread.
//
// Points, colours by role and texts are kept as they came; what they look like is decided when they are drawn again.
// One thread at a time while it is drawn on; afterwards any number may replay it.
class RecordedDrawing : public Canvas {
public:
    // `pixel`: of the canvas that it is meant for. Own colours stay as they are, unless a subclass knows that canvas's.
    explicit RecordedDrawing(double pixel) : m_pixel(pixel) {}

    void replay(Canvas& canvas) const;

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override;
    void begin_layer(Rect area) override;
    void end_layer() override;
    [[nodiscard]] double pixel() const override { return m_pixel; }
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    double m_pixel;
    std::vector<std::function<void(Canvas&)>> m_steps;
};

// A window onto a drawing: what is drawn at `corner` appears at the lower left corner of the canvas behind it.
//
// A graph's frame may be a thousand million points wide, more than any toolkit counts; this way only coordinates near
// what is in sight reach the canvas. Borrows the canvas.
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

// A canvas that draws nothing and knows how far the drawing reached: for repainting no more than what changed.
//
// Text counts with its box. Lengths in points, y up.
class BoundsCanvas : public Canvas {
public:
    // The box around everything drawn, with a margin; empty when nothing was.
    [[nodiscard]] Rect bounds(double margin) const;

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override;
    [[nodiscard]] double pixel() const override { return 1; }
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    void add(Point point);
    void add(Rect box);
    void add(const Path& path, double around);

    std::optional<Point> m_low;
    Point m_high;
};

} // namespace tickervantage
