// Many lines and boxes laid onto a painter's pixels at once, by counting instead of painting.
//
// Where the painter's pixels can be written themselves, they are: a picture in memory, or a widget none of which is
// hidden. Else what was drawn becomes a picture that the painter lays down. Coordinates are the canvas's: points, y up.
// The painter must live from begin() to end(). One thread.
#pragma once

#include "draw/canvas.h"
#include "draw/canvas_pixels.h"
#include "draw/coverage_layer.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <span>

class QPainter;

namespace tickervantage {

class PixelLayer {
public:
    // `height`: where y is 0, counted down from the painter's origin. False when the painter has no pixels to count, or
    // none of them lies in the area.
    [[nodiscard]] bool begin(QPainter& painter, Rect area, double height);
    void end();
    [[nodiscard]] bool is_open() const { return m_painter != nullptr; }
    [[nodiscard]] CanvasPixels pixels() const; // of the open layer, to be written until end()

    // Lines that all stand upright, or all lie level, at once and without a layer. False where the painter's own pixels
    // cannot be written: nothing was drawn.
    [[nodiscard]] bool draw_parallels(QPainter& painter, std::span<const Path::Element> lines, double height,
                                      const QColor& color, double width, std::span<const double> dash);

    void use(const QColor& color); // for all that is added next
    void add_line(Point from, Point to, double width);
    void add_box(Rect box);

    // An upright box a column wide for each span, as Canvas::fill_columns has it.
    void add_columns(Point origin, double column_width, std::span<const ColumnSpan> spans);

    void add_polygon(std::span<const Point> corners); // its edges do not cross

    // Upright and level lines as whole pixels, dashed from their starts on.
    void add_straight_lines(std::span<const Path::Element> lines, const QColor& color, double width,
                            std::span<const double> dash);

private:
    [[nodiscard]] bool look_at(QPainter& painter, Rect area, double height);
    void choose_target();
    void draw_straight_lines(std::span<const Path::Element> lines, const CoverageBrush& brush, double width,
                             std::span<const double> dash);
    void draw_comb(std::span<const Path::Element> teeth, const CoverageBrush& brush, double width,
                   std::span<const double> dash);
    [[nodiscard]] double x(double at) const { return at * m_scale_x + m_left; }
    [[nodiscard]] double y(double at) const { return m_bottom - at * m_scale_y; }

    CoverageLayer m_coverage;
    QImage m_picture; // where the painter's own pixels cannot be written
    QPainter* m_painter = nullptr;
    QRect m_pixels; // of the device
    PixelRows m_target;
    bool m_is_own_picture = false;
    QColor m_color;
    double m_scale_x = 1; // from points to pixels
    double m_scale_y = 1;
    double m_left = 0;
    double m_bottom = 0;
};

} // namespace tickervantage
