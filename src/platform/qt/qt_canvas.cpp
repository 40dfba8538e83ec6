#include "platform/qt/qt_canvas.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <utility>

namespace tickervantage {

namespace {

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

void QtCanvas::text(std::string_view text, Rect box, const TextStyle& style) {
    const SavedPainter saved(m_painter);
    const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    m_painter.setFont(font_of_size(style.size, *m_painter.device()));
    m_painter.setPen(m_colors.of(style.color));

    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    const QRectF area(box.x, m_height - box.y - box.height, box.width, box.height);
    const double baseline = area.top() + TEXT_MIDDLE * style.size + metrics.capHeight() / 2;
    m_painter.drawText(QPointF(aligned_left(area, metrics.horizontalAdvance(line), style.align), baseline), line);
}

} // namespace tickervantage
