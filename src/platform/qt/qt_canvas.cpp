#include "platform/qt/qt_canvas.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tickervantage {

namespace {

constexpr int LARGEST_LAYER_SIDE = 32768;
constexpr double SHADOW_RINGS[] = {4.5, 2.0}; // wider than the stroke; translucent strokes are dear, so only two

class SavedPainter {
public:
    explicit SavedPainter(QPainter& painter) : m_painter(painter) {
        m_painter.save();
        m_painter.setRenderHint(QPainter::Antialiasing);
    }
    ~SavedPainter() { m_painter.restore(); }
    SavedPainter(const SavedPainter&) = delete;
    SavedPainter& operator=(const SavedPainter&) = delete;

private:
    QPainter& m_painter;
};

// Turns a canvas path into a painter's path, y down. Lines that begin where the last one ended go on from it, so that
// their corners are joined.
class PathBuilder {
public:
    explicit PathBuilder(double height) : m_height(height) {}

    void add(const Path::Element& element) {
        switch (element.kind) {
        case Path::Element::Kind::line:
            if (m_path.elementCount() == 0 || m_path.currentPosition() != flipped(element.from))
                m_path.moveTo(flipped(element.from));
            m_path.lineTo(flipped(element.to));
            break;
        case Path::Element::Kind::ellipse:
            m_path.addEllipse(flipped(element.rect));
            break;
        case Path::Element::Kind::rounded_rect:
            m_path.addRoundedRect(flipped(element.rect), element.radius.x, element.radius.y);
            break;
        }
    }
    [[nodiscard]] QPainterPath take() { return std::move(m_path); }

private:
    [[nodiscard]] QPointF flipped(Point point) const { return {point.x, m_height - point.y}; }
    [[nodiscard]] QRectF flipped(Rect rect) const {
        return {rect.x, m_height - rect.y - rect.height, rect.width, rect.height};
    }

    double m_height;
    QPainterPath m_path;
};

QPainterPath painter_path(const Path& path, double height) {
    PathBuilder builder(height);
    for (const auto& element : path.elements)
        builder.add(element);
    return builder.take();
}

// Moves a coordinate so that a line of that width fills whole pixels.
double aligned(double at, double offset, double width, double scale) {
    const auto pixels = std::max(1L, std::lround(width * scale));
    const double phase = pixels % 2 == 0 ? 0.0 : 0.5;
    return (std::round(at * scale + offset - phase) + phase - offset) / scale;
}

void sharpen_segment(QPainterPath& path, int first, double width, const QTransform& device) {
    constexpr double NEARLY = 1e-6;
    const QPointF from = path.elementAt(first);
    const QPointF to = path.elementAt(first + 1);
    if (std::abs(from.x() - to.x()) < NEARLY) {
        const double x = aligned(from.x(), device.dx(), width, device.m11());
        path.setElementPositionAt(first, x, from.y());
        path.setElementPositionAt(first + 1, x, to.y());
    } else if (std::abs(from.y() - to.y()) < NEARLY) {
        const double y = aligned(from.y(), device.dy(), width, device.m22());
        path.setElementPositionAt(first, from.x(), y);
        path.setElementPositionAt(first + 1, to.x(), y);
    }
}

// Upright and level lines would be blurred over two rows of pixels. Lines that others join stay where they are.
QPainterPath sharpened(QPainterPath path, double width, const QTransform& device) {
    if (device.type() > QTransform::TxScale)
        return path;
    const auto starts = [&path](int at) {
        return at == path.elementCount() || path.elementAt(at).isMoveTo();
    };
    for (int at = 0; at + 1 < path.elementCount(); ++at)
        if (path.elementAt(at).isMoveTo() && path.elementAt(at + 1).isLineTo() && starts(at + 2))
            sharpen_segment(path, at, width, device);
    return path;
}

// In widths of the pen, as QPen wants it.
QList<qreal> dash_pattern(const LineStyle& style) {
    QList<qreal> pattern;
    for (const double length : style.dash)
        pattern.append(length / style.width);
    return pattern;
}

QFont font_of_size(double size, const QPaintDevice& device) {
    QFont font = QGuiApplication::font();
    // Points of the canvas are units of the painter, whatever density the device claims; only the size in typographic
    // points may have a fraction.
    font.setPointSizeF(size * 72 / device.logicalDpiY());
    return font;
}

double aligned_left(const QRectF& box, double width, TextAlign align) {
    switch (align) {
    case TextAlign::left:
        return box.left();
    case TextAlign::right:
        return box.right() - width;
    case TextAlign::center:
        break;
    }
    return box.center().x() - width / 2;
}

} // namespace

QtCanvas::QtCanvas(QPainter& painter, double height, CanvasColors colors)
    : m_painter(painter), m_height(height), m_colors(std::move(colors)) {}

void QtCanvas::fill(const Path& path, ColorRole color, FillRule rule) {
    const SavedPainter saved(m_painter);
    QPainterPath shape = painter_path(path, m_height);
    shape.setFillRule(rule == FillRule::even_odd ? Qt::OddEvenFill : Qt::WindingFill);
    m_painter.fillPath(shape, m_colors.of(color));
}

void QtCanvas::stroke(const Path& path, ColorRole color, double width, Shadow shadow) {
    const SavedPainter saved(m_painter);
    const QPainterPath line = painter_path(path, m_height);
    if (shadow == Shadow::soft) {
        for (const double ring : SHADOW_RINGS)
            m_painter.strokePath(line, QPen(m_colors.shadow, width + ring, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    m_painter.strokePath(sharpened(line, width, m_painter.deviceTransform()),
                         QPen(m_colors.of(color), width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
}

void QtCanvas::stroke(const Path& path, const LineStyle& style) {
    const SavedPainter saved(m_painter);
    QPen pen(color_of(style.ink), style.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
    if (!style.dash.empty())
        pen.setDashPattern(dash_pattern(style));
    m_painter.strokePath(sharpened(painter_path(path, m_height), style.width, m_painter.deviceTransform()), pen);
}

void QtCanvas::polyline(std::span<const Point> points, const Ink& ink, double width) {
    if (m_layer) {
        use_on_layer(ink);
        for (std::size_t i = 1; i < points.size(); ++i)
            m_layer->add_line(on_layer(points[i - 1]), on_layer(points[i]), width / pixel());
        return;
    }
    const SavedPainter saved(m_painter);
    std::vector<QPointF> corners;
    corners.reserve(points.size());
    for (const auto& point : points)
        corners.emplace_back(point.x, m_height - point.y);
    m_painter.setPen(QPen(color_of(ink), width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
    m_painter.drawPolyline(corners.data(), static_cast<int>(corners.size()));
}

void QtCanvas::fill_rects(std::span<const Rect> boxes, const Ink& ink) {
    if (m_layer) {
        use_on_layer(ink);
        for (const auto& box : boxes) {
            const Point corner = on_layer({box.x, box.y + box.height});
            m_layer->add_box({corner.x, corner.y, box.width / pixel(), box.height / pixel()});
        }
        return;
    }
    const SavedPainter saved(m_painter);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    const QColor color = color_of(ink);
    for (const auto& box : boxes)
        m_painter.fillRect(QRectF(box.x, m_height - box.y - box.height, box.width, box.height), color);
}

// Only for pixels: a picture of lines has no pixels to count.
void QtCanvas::begin_layer(Rect area) {
    const QTransform device = m_painter.deviceTransform();
    if (m_painter.paintEngine()->type() != QPaintEngine::Raster || device.type() > QTransform::TxScale)
        return;
    const QRectF box(area.x, m_height - area.y - area.height, area.width, area.height);
    const QRect limits(0, 0, LARGEST_LAYER_SIDE, LARGEST_LAYER_SIDE);
    const QRect pixels = device.mapRect(box).toAlignedRect().intersected(limits);
    if (pixels.isEmpty())
        return;
    m_layer_corner = pixels.topLeft();
    m_layer.emplace(pixels.width(), pixels.height());
}

void QtCanvas::end_layer() {
    if (!m_layer)
        return;
    paint_layer();
    const int rows = m_layer->end_row() - m_layer->first_row();
    if (rows > 0) {
        const auto stride = static_cast<std::ptrdiff_t>(m_layer->width());
        QImage image(reinterpret_cast<const uchar*>(m_layer->pixels() + m_layer->first_row() * stride),
                     m_layer->width(), rows, static_cast<qsizetype>(stride * 4), QImage::Format_ARGB32_Premultiplied);
        const QTransform device = m_painter.deviceTransform();
        image.setDevicePixelRatio(device.m11());
        m_painter.drawImage(device.inverted().map(QPointF(m_layer_corner + QPoint(0, m_layer->first_row()))), image);
    }
    m_layer.reset();
}

void QtCanvas::paint_layer() {
    if (!m_layer_ink)
        return;
    const QColor color = color_of(*m_layer_ink);
    m_layer->paint({color.redF(), color.greenF(), color.blueF(), color.alphaF()});
    m_layer_ink.reset();
}

void QtCanvas::use_on_layer(const Ink& ink) {
    if (m_layer_ink && *m_layer_ink != ink)
        paint_layer();
    m_layer_ink = ink;
}

Point QtCanvas::on_layer(Point point) const {
    const QTransform device = m_painter.deviceTransform();
    return {point.x * device.m11() + device.dx() - m_layer_corner.x(),
            (m_height - point.y) * device.m22() + device.dy() - m_layer_corner.y()};
}

double QtCanvas::pixel() const {
    const double scale = std::abs(m_painter.deviceTransform().m11());
    return scale > 0 ? 1 / scale : 1;
}

QColor QtCanvas::color_of(const Ink& ink) const {
    const auto channel = [](double value) {
        return static_cast<float>(std::clamp(value, 0.0, 1.0));
    };
    QColor color = m_colors.of(ink.role);
    if (ink.own)
        color = QColor::fromRgbF(channel(ink.own->red), channel(ink.own->green), channel(ink.own->blue),
                                 channel(ink.own->alpha));
    color.setAlphaF(color.alphaF() * channel(ink.opacity));
    return color;
}

void QtCanvas::text(std::string_view text, Rect box, const TextStyle& style) {
    const SavedPainter saved(m_painter);
    const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    m_painter.setFont(font_of_size(style.size, *m_painter.device()));
    m_painter.setPen(color_of(style.color));

    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    const QRectF area(box.x, m_height - box.y - box.height, box.width, box.height);
    const double baseline = area.top() + TEXT_MIDDLE * style.size + metrics.capHeight() / 2;
    m_painter.drawText(QPointF(aligned_left(area, metrics.horizontalAdvance(line), style.align), baseline), line);
}

} // namespace tickervantage
