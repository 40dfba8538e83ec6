#include "platform/qt/pixel_layer.h"

#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cmath>

namespace tickervantage {

namespace {

constexpr double ROUNDING = 65536.5; // keeps what is left of the layer positive, so that cutting off rounds

// Those of the painter, if all of the area may be written: nothing is cut off, and nothing lies over it.
QImage* writable_image(const QPainter& painter, const QRect& area) {
    const QPaintEngine& engine = *painter.paintEngine();
    auto* image = dynamic_cast<QImage*>(engine.paintDevice());
    const QRegion clip = engine.systemClip();
    if (!image || painter.hasClipping() || !(clip.isEmpty() || QRegion(area).subtracted(clip).isEmpty()))
        return nullptr;
    const bool is_plain = painter.opacity() >= 1 && painter.compositionMode() == QPainter::CompositionMode_SourceOver;
    const bool fits = image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
    return is_plain && fits && image->isDetached() ? image : nullptr;
}

QSize pixels_of(const QPainter& painter) {
    constexpr int LARGEST_SIDE = 32768;
    const QPaintDevice& device = *painter.paintEngine()->paintDevice();
    return QSize(device.width(), device.height()).boundedTo({LARGEST_SIDE, LARGEST_SIDE});
}

} // namespace

bool PixelLayer::begin(QPainter& painter, Rect area, double height) {
    const QTransform device = painter.deviceTransform();
    if (painter.paintEngine()->type() != QPaintEngine::Raster || device.type() > QTransform::TxScale ||
        device.m11() <= 0 || device.m22() <= 0)
        return false;
    const QRectF box(area.x, height - area.y - area.height, area.width, area.height);
    m_pixels = device.mapRect(box).toAlignedRect().intersected(QRect(QPoint(), pixels_of(painter)));
    if (m_pixels.isEmpty())
        return false;
    m_painter = &painter;
    m_scale_x = device.m11();
    m_scale_y = device.m22();
    m_left = device.dx() - m_pixels.x();
    m_bottom = height * m_scale_y + device.dy() - m_pixels.y();
    m_coverage.resize(m_pixels.width(), m_pixels.height());
    m_color = QColor();
    choose_target();
    return true;
}

void PixelLayer::choose_target() {
    QImage* image = writable_image(*m_painter, m_pixels);
    m_is_own_picture = !image;
    if (m_is_own_picture) {
        if (m_picture.size() != m_pixels.size())
            m_picture = QImage(m_pixels.size(), QImage::Format_ARGB32_Premultiplied);
        m_picture.fill(Qt::transparent);
        image = &m_picture;
    }
    const QPoint corner = m_is_own_picture ? QPoint() : m_pixels.topLeft();
    m_target = {reinterpret_cast<std::uint32_t*>(image->scanLine(corner.y())) + corner.x(), image->bytesPerLine() / 4};
}

void PixelLayer::end() {
    if (!m_painter)
        return;
    m_coverage.paint(m_target);
    if (m_is_own_picture) {
        m_picture.setDevicePixelRatio(m_scale_x);
        m_painter->drawImage(m_painter->deviceTransform().inverted().map(QPointF(m_pixels.topLeft())), m_picture);
    }
    m_painter = nullptr;
}

void PixelLayer::use(const QColor& color) {
    if (m_color != color)
        m_coverage.use({color.redF(), color.greenF(), color.blueF(), color.alphaF()});
    m_color = color;
}

void PixelLayer::add_line(Point from, Point to, double width) {
    m_coverage.add_line({x(from.x), y(from.y)}, {x(to.x), y(to.y)}, width * m_scale_x);
}

void PixelLayer::add_box(Rect box) {
    m_coverage.add_box({x(box.x), y(box.y + box.height), box.width * m_scale_x, box.height * m_scale_y});
}

void PixelLayer::add_straight_line(Point from, Point to, double width, std::span<const double> dash) {
    const bool is_upright = from.x == to.x;
    const double scale = is_upright ? m_scale_y : m_scale_x;
    const double start = is_upright ? y(from.y) : x(from.x);
    const double way = (is_upright ? y(to.y) : x(to.x)) - start;
    const double length = std::abs(way);
    const double direction = way < 0 ? -1 : 1;
    const auto thickness = static_cast<int>(std::max(1L, std::lround(width * (is_upright ? m_scale_x : m_scale_y))));
    const auto side = static_cast<int>(std::lround((is_upright ? x(from.x) : y(from.y)) - thickness / 2.0));
    const auto pixel_at = [&](double along) { // rounded; far quicker than lround
        return static_cast<int>(start + direction * along + ROUNDING) - static_cast<int>(ROUNDING);
    };
    double at = 0;
    for (std::size_t i = 0; at < length; ++i) {
        const double step = dash.empty() ? length : dash[i % dash.size()] * scale;
        if (i % 2 == 0) {
            const auto [first, end] = std::minmax({pixel_at(at), pixel_at(std::min(at + step, length))});
            if (is_upright)
                add_pixels(side, first, thickness, end - first);
            else
                add_pixels(first, side, end - first, thickness);
        }
        at += step;
    }
}

void PixelLayer::add_pixels(int left, int top, int width, int height) {
    if (width > 0 && height > 0)
        m_coverage.add_box({static_cast<double>(left), static_cast<double>(top), static_cast<double>(width),
                            static_cast<double>(height)});
}

} // namespace tickervantage
