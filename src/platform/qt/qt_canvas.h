// A canvas on anything that QPainter paints on: a widget, an image, a picture file.
//
// The canvas borrows the painter and leaves its state as it found it after each call. Text comes in the application's
// font family. Main thread, or the thread that owns the painter.
#pragma once

#include "platform/canvas.h"
#include "platform/coverage_layer.h"
#include "platform/qt/canvas_colors.h"

#include <QPoint>

#include <optional>

class QPainter;

namespace tickervantage {

class QtCanvas : public Canvas {
public:
    // `height` in the painter's units: where y is 0, counted down from the painter's origin.
    QtCanvas(QPainter& painter, double height, CanvasColors colors);

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void begin_layer(Rect area) override;
    void end_layer() override;
    [[nodiscard]] double pixel() const override;
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    [[nodiscard]] QColor color_of(const Ink& ink) const;
    [[nodiscard]] Point on_layer(Point point) const;
    void use_on_layer(const Ink& ink);
    void paint_layer();

    QPainter& m_painter;
    double m_height;
    CanvasColors m_colors;

    std::optional<CoverageLayer> m_layer; // while one is open
    QPoint m_layer_corner;                // in pixels of the device
    std::optional<Ink> m_layer_ink;       // of what has been added but not painted
};

} // namespace tickervantage
