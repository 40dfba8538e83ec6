// A canvas on anything that QPainter paints on: a widget, an image, a picture file.
//
// The canvas borrows the painter and leaves its state as it found it after each call. Text comes in the application's
// font family. Main thread, or the thread that owns the painter.
#pragma once

#include "platform/canvas.h"
#include "platform/qt/canvas_colors.h"

class QPainter;

namespace tickervantage {

class QtCanvas : public Canvas {
public:
    // `height` in the painter's units: where y is 0, counted down from the painter's origin.
    QtCanvas(QPainter& painter, double height, CanvasColors colors);

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    QPainter& m_painter;
    double m_height;
    CanvasColors m_colors;
};

} // namespace tickervantage
