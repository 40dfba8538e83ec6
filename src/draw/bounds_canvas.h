// A canvas that draws nothing and knows how far the drawing reached: for repainting no more than what changed.
//
// Text counts with its box. Lengths in points, y up.
#pragma once

#include "draw/canvas.h"

#include <optional>

namespace tickervantage {

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
