#include "qt/qt_canvas.h"

#include "qt/local_number.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace tickervantage {

namespace {

constexpr std::array SHADOW_RINGS{4.5, 2.0}; // wider than the stroke; translucent strokes are dear, so only two

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

bool is_straight(const Path::Element& element) {
    return element.kind == Path::Element::Kind::line &&
           (element.from.x == element.to.x || element.from.y == element.to.y);
}

// Lines of which none meets another at a corner.
bool are_parallels(const Path& path) {
    const auto all = [&path](double Point::*axis) {
        return std::ranges::all_of(path.elements, [axis](const Path::Element& one) {
            return one.kind == Path::Element::Kind::line && one.from.*axis == one.to.*axis;
        });
    };
    return !path.elements.empty() && (all(&Point::x) || all(&Point::y));
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

// With the edges rounded, each by itself.
QRect whole_pixels(const QRectF& box) {
    const QPoint corner(qRound(box.left()), qRound(box.top()));
    return {corner, QSize(qRound(box.right()) - corner.x(), qRound(box.bottom()) - corner.y())};
}

// All in one call and in whole numbers, for which the painter of pixels has a quick way.
void draw_whole_boxes(QPainter& painter, std::span<const Rect> boxes, const QColor& color, double height) {
    std::vector<QRect> whole;
    whole.reserve(boxes.size());
    for (const auto& box : boxes)
        if (const QRect pixels = whole_pixels({box.x, height - box.y - box.height, box.width, box.height});
            !pixels.isEmpty())
            whole.push_back(pixels);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRects(whole.data(), static_cast<int>(whole.size()));
}

Color own_color(const QColor& color) {
    return {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
}

} // namespace

QtCanvas::QtCanvas(QPainter& painter, double height, CanvasColors colors, CanvasMemory* memory)
    : m_painter(painter), m_height(height), m_colors(colors), m_memory(memory ? *memory : m_own_memory),
      m_keeps_labels(memory && painter.paintEngine()->type() == QPaintEngine::Raster) {}

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
    if (m_memory.layer.is_open() && std::ranges::all_of(path.elements, is_straight)) {
        m_memory.layer.add_straight_lines(path.elements, color_of(style.ink), style.width, style.dash);
        return;
    }
    if (!m_memory.layer.is_open() && are_parallels(path) &&
        m_memory.layer.draw_parallels(m_painter, path.elements, m_height, color_of(style.ink), style.width, style.dash))
        return;
    const SavedPainter saved(m_painter);
    QPen pen(color_of(style.ink), style.width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin);
    if (!style.dash.empty())
        pen.setDashPattern(dash_pattern(style));
    m_painter.strokePath(sharpened(painter_path(path, m_height), style.width, m_painter.deviceTransform()), pen);
}

void QtCanvas::polyline(std::span<const Point> points, const Ink& ink, double width) {
    if (m_memory.layer.is_open()) {
        m_memory.layer.use(color_of(ink));
        for (std::size_t i = 1; i < points.size(); ++i)
            m_memory.layer.add_line(points[i - 1], points[i], width);
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
    if (m_memory.layer.is_open()) {
        m_memory.layer.use(color_of(ink));
        for (const auto& box : boxes)
            m_memory.layer.add_box(box);
        return;
    }
    const SavedPainter saved(m_painter);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    const QColor color = color_of(ink);
    if (m_painter.paintEngine()->type() == QPaintEngine::Raster &&
        m_painter.deviceTransform().type() <= QTransform::TxTranslate) {
        draw_whole_boxes(m_painter, boxes, color, m_height);
        return;
    }
    for (const auto& box : boxes)
        m_painter.fillRect(QRectF(box.x, m_height - box.y - box.height, box.width, box.height), color);
}

void QtCanvas::fill_columns(Point origin, double column_width, std::span<const ColumnSpan> spans, const Ink& ink) {
    if (!m_memory.layer.is_open()) {
        Canvas::fill_columns(origin, column_width, spans, ink);
        return;
    }
    m_memory.layer.use(color_of(ink));
    m_memory.layer.add_columns(origin, column_width, spans);
}

void QtCanvas::fill_polygon(std::span<const Point> corners, const Ink& ink) {
    if (m_memory.layer.is_open()) {
        m_memory.layer.use(color_of(ink));
        m_memory.layer.add_polygon(corners);
        return;
    }
    const SavedPainter saved(m_painter);
    std::vector<QPointF> flipped;
    flipped.reserve(corners.size());
    for (const auto& corner : corners)
        flipped.emplace_back(corner.x, m_height - corner.y);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(color_of(ink));
    m_painter.drawPolygon(flipped.data(), static_cast<int>(flipped.size()), Qt::WindingFill);
}

// Only for pixels: a picture of lines has no pixels to count, and is drawn at once.
void QtCanvas::begin_layer(Rect area) {
    static_cast<void>(m_memory.layer.begin(m_painter, area, m_height)); // without one everything is drawn at once
}

void QtCanvas::end_layer() {
    m_memory.layer.end();
}

std::optional<CanvasPixels> QtCanvas::begin_pixels(Rect area) {
    if (!m_memory.layer.begin(m_painter, area, m_height))
        return std::nullopt;
    CanvasPixels pixels = m_memory.layer.pixels();
    pixels.text = own_color(m_colors.text);
    pixels.background = own_color(m_colors.text_background);
    return pixels;
}

void QtCanvas::end_pixels() {
    m_memory.layer.end();
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
    m_painter.setPen(color_of(style.color));
    const QRectF area(box.x, m_height - box.y - box.height, box.width, box.height);
    const double middle = area.top() + TEXT_MIDDLE * style.size;
    const std::string shown = with_local_point(text);
    if (m_keeps_labels)
        draw_label(shown, area, middle, style);
    else
        draw_text(shown, area, middle, style);
}

void QtCanvas::draw_label(std::string_view text, const QRectF& area, double middle, const TextStyle& style) {
    auto& face = m_memory.labels.face(style.size, *m_painter.device());
    const QStaticText& label = LabelCache::label(face, text);
    m_painter.setFont(face.font);
    m_painter.drawStaticText(
        QPointF(aligned_left(area, label.size().width(), style.align), middle + face.cap_height / 2 - face.ascent),
        label);
}

void QtCanvas::draw_text(std::string_view text, const QRectF& area, double middle, const TextStyle& style) {
    const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    m_painter.setFont(font_of_size(style.size, *m_painter.device()));
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    m_painter.drawText(
        QPointF(aligned_left(area, metrics.horizontalAdvance(line), style.align), middle + metrics.capHeight() / 2),
        line);
}

} // namespace tickervantage
