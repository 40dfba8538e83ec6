// A canvas on anything that QPainter paints on: a widget, an image, a picture file.
//
// The canvas borrows the painter and leaves its state as it found it after each call. Text comes in the application's
// font family. One thread, the painter's.
#pragma once

#include "draw/canvas.h"
#include "qt/canvas_colors.h"
#include "qt/label_cache.h"
#include "qt/pixel_layer.h"

class QPainter;

namespace tickervantage {

// What a canvas is quicker with when it is kept from frame to frame, by whoever draws many.
struct CanvasMemory {
    PixelLayer layer;
    LabelCache labels;
};

class QtCanvas : public Canvas {
public:
    // `height` in the painter's units: where y is 0, counted down from the painter's origin. The memory, if any, serves
    // one canvas at a time and must outlive it.
    QtCanvas(QPainter& painter, double height, CanvasColors colors, CanvasMemory* memory = nullptr);
    QtCanvas(const QtCanvas&) = delete;
    QtCanvas& operator=(const QtCanvas&) = delete;

    void fill(const Path& path, ColorRole color, FillRule rule) override;
    void stroke(const Path& path, ColorRole color, double width, Shadow shadow) override;
    void stroke(const Path& path, const LineStyle& style) override;
    void polyline(std::span<const Point> points, const Ink& ink, double width) override;
    void fill_rects(std::span<const Rect> boxes, const Ink& ink) override;
    void fill_columns(Point origin, double column_width, std::span<const ColumnSpan> spans, const Ink& ink) override;
    void fill_polygon(std::span<const Point> corners, const Ink& ink) override;
    void begin_layer(Rect area) override;
    void end_layer() override;
    [[nodiscard]] std::optional<CanvasPixels> begin_pixels(Rect area) override;
    void end_pixels() override;
    [[nodiscard]] Color readable(const Color& line) const override { return m_colors.readable(line); }
    [[nodiscard]] double pixel() const override;
    void text(std::string_view text, Rect box, const TextStyle& style) override;

private:
    [[nodiscard]] QColor color_of(const Ink& ink) const;
    void draw_label(std::string_view text, const QRectF& area, double middle, const TextStyle& style);
    void draw_text(std::string_view text, const QRectF& area, double middle, const TextStyle& style);

    QPainter& m_painter;
    double m_height;
    CanvasColors m_colors;
    CanvasMemory m_own_memory; // used when there is no other
    CanvasMemory& m_memory;
    bool m_keeps_labels; // text in a picture of lines stays text
};

} // namespace tickervantage
