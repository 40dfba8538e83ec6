#include "qt/pixel_layer.h"

#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace tickervantage {

namespace {

constexpr double NEARLY = 1e-6;

// Far quicker than the library's. Nearer than a thousand million pixels.
int rounded(double at) {
    return static_cast<int>(std::floor(at + 0.5));
}

Color plain(const QColor& color) {
    return {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
}

// Pixels of a row or a column.
struct Run {
    int first = 0;
    int end = 0;
};

// The part that lies within the first `count` pixels.
void add_run(std::vector<Run>& runs, double first, double end, int count) {
    const Run run{rounded(std::max(first, 0.0)), rounded(std::min(end, static_cast<double>(count)))};
    if (run.first < run.end)
        runs.push_back(run);
}

// What is drawn of a line from `start` to `end`.
std::vector<Run> dashes(double start, double end, double scale, std::span<const double> dash, int count) {
    const double length = std::abs(end - start);
    const double direction = end < start ? -1 : 1;
    std::vector<Run> runs;
    double at = 0;
    for (std::size_t i = 0; at < length; ++i) {
        const double next = dash.empty() ? length : std::min(at + dash[i % dash.size()] * scale, length);
        const auto [first, last] = std::minmax({start + direction * at, start + direction * next});
        if (i % 2 == 0)
            add_run(runs, first, last, count);
        at = next;
    }
    return runs;
}

// Whether they differ in nothing but where they stand side by side.
bool are_teeth(const Path::Element& one, const Path::Element& other) {
    const bool both_upright = one.from.x == one.to.x && other.from.x == other.to.x;
    const bool both_level = one.from.y == one.to.y && other.from.y == other.to.y;
    return (both_upright && one.from.y == other.from.y && one.to.y == other.to.y) ||
           (both_level && one.from.x == other.from.x && one.to.x == other.to.x);
}

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

PixelRows pixels_from(QImage& image, QPoint corner) {
    return {reinterpret_cast<std::uint32_t*>(image.scanLine(corner.y())) + corner.x(), image.bytesPerLine() / 4};
}

Rect box_around(std::span<const Path::Element> lines, double width) {
    constexpr double NOWHERE = std::numeric_limits<double>::infinity();
    Point low{NOWHERE, NOWHERE};
    Point high{-NOWHERE, -NOWHERE};
    for (const auto& line : lines)
        for (const Point& end : {line.from, line.to}) {
            low = {std::min(low.x, end.x), std::min(low.y, end.y)};
            high = {std::max(high.x, end.x), std::max(high.y, end.y)};
        }
    return {low.x - width, low.y - width, high.x - low.x + 2 * width, high.y - low.y + 2 * width};
}

QSize pixels_of(const QPainter& painter) {
    constexpr int LARGEST_SIDE = 32768;
    const QPaintDevice& device = *painter.paintEngine()->paintDevice();
    return QSize(device.width(), device.height()).boundedTo({LARGEST_SIDE, LARGEST_SIDE});
}

} // namespace

// Finds the pixels of the area, and where points lie among them.
bool PixelLayer::look_at(QPainter& painter, Rect area, double height) {
    const QTransform device = painter.deviceTransform();
    if (painter.paintEngine()->type() != QPaintEngine::Raster || device.type() > QTransform::TxScale ||
        device.m11() <= 0 || device.m22() <= 0)
        return false;
    const QRectF box(area.x, height - area.y - area.height, area.width, area.height);
    m_pixels = device.mapRect(box).toAlignedRect().intersected(QRect(QPoint(), pixels_of(painter)));
    if (m_pixels.isEmpty())
        return false;
    m_scale_x = device.m11();
    m_scale_y = device.m22();
    m_left = device.dx() - m_pixels.x();
    m_bottom = height * m_scale_y + device.dy() - m_pixels.y();
    return true;
}

bool PixelLayer::begin(QPainter& painter, Rect area, double height) {
    if (!look_at(painter, area, height))
        return false;
    m_coverage.resize(m_pixels.width(), m_pixels.height());
    m_color = QColor();
    m_painter = &painter;
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
    m_target = pixels_from(*image, m_is_own_picture ? QPoint() : m_pixels.topLeft());
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

CanvasPixels PixelLayer::pixels() const {
    return {.rows = m_target,
            .width = m_pixels.width(),
            .height = m_pixels.height(),
            .scale_x = m_scale_x,
            .scale_y = m_scale_y,
            .left = m_left,
            .bottom = m_bottom,
            .is_canvas = !m_is_own_picture};
}

void PixelLayer::use(const QColor& color) {
    if (m_color != color)
        m_coverage.use(plain(color));
    m_color = color;
}

void PixelLayer::add_line(Point from, Point to, double width) {
    m_coverage.add_line({x(from.x), y(from.y)}, {x(to.x), y(to.y)}, width * m_scale_x);
}

void PixelLayer::add_box(Rect box) {
    m_coverage.add_box({x(box.x), y(box.y + box.height), box.width * m_scale_x, box.height * m_scale_y});
}

// The layer's columns are pixels nearly always; where they are not, each is a box like any other.
void PixelLayer::add_columns(Point origin, double column_width, std::span<const ColumnSpan> spans) {
    if (std::abs(column_width * m_scale_x - 1) < NEARLY) {
        m_coverage.add_columns(spans, rounded(x(origin.x)), y(origin.y), m_scale_y);
        return;
    }
    for (const ColumnSpan& span : spans)
        add_box({origin.x + static_cast<double>(span.column) * column_width, origin.y + span.low, column_width,
                 span.high - span.low});
}

// A box in each column of pixels from where the column's middle enters the shape to where it leaves it.
void PixelLayer::add_polygon(std::span<const Point> corners) {
    std::vector<std::pair<int, double>> crossings; // column, height
    const auto column = [this](double at) {
        return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(m_pixels.width())) + 0.5);
    };
    for (std::size_t i = 0; i < corners.size(); ++i) {
        auto from = corners[i];
        auto to = corners[(i + 1) % corners.size()];
        if (from.x > to.x)
            std::swap(from, to);
        const double rise = (y(to.y) - y(from.y)) / (x(to.x) - x(from.x));
        const int end = column(x(to.x));
        for (int at = column(x(from.x)); at < end; ++at)
            crossings.emplace_back(at, y(from.y) + (at + 0.5 - x(from.x)) * rise);
    }
    std::ranges::sort(crossings);
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
        m_coverage.add_box({static_cast<double>(crossings[i].first), crossings[i].second, 1,
                            crossings[i + 1].second - crossings[i].second});
}

// Straight onto the pixels: a grid has as many dashes as a graph has columns.
void PixelLayer::add_straight_lines(std::span<const Path::Element> lines, const QColor& color, double width,
                                    std::span<const double> dash) {
    m_coverage.paint(m_target);
    m_color = QColor(); // the layer has forgotten it
    draw_straight_lines(lines, CoverageBrush(plain(color)), width, dash);
}

void PixelLayer::draw_straight_lines(std::span<const Path::Element> lines, const CoverageBrush& brush, double width,
                                     std::span<const double> dash) {
    while (!lines.empty()) {
        const auto other = std::ranges::find_if_not(lines, [&](const auto& one) { return are_teeth(lines[0], one); });
        const auto teeth = lines.first(static_cast<std::size_t>(other - lines.begin()));
        draw_comb(teeth, brush, width, dash);
        lines = lines.subspan(teeth.size());
    }
}

bool PixelLayer::draw_parallels(QPainter& painter, std::span<const Path::Element> lines, double height,
                                const QColor& color, double width, std::span<const double> dash) {
    if (!look_at(painter, box_around(lines, width), height))
        return false;
    QImage* image = writable_image(painter, m_pixels);
    if (!image)
        return false;
    m_target = pixels_from(*image, m_pixels.topLeft());
    draw_straight_lines(lines, CoverageBrush(plain(color)), width, dash);
    return true;
}

// Lines side by side with the same ends have their dashes side by side too.
void PixelLayer::draw_comb(std::span<const Path::Element> teeth, const CoverageBrush& brush, double width,
                           std::span<const double> dash) {
    const auto& [kind, from, to, rect, radius] = teeth.front();
    const bool upright = from.x == to.x;
    const int columns = m_pixels.width();
    const int rows = m_pixels.height();
    const auto runs = upright ? dashes(y(from.y), y(to.y), m_scale_y, dash, rows)
                              : dashes(x(from.x), x(to.x), m_scale_x, dash, columns);
    const double scale = upright ? m_scale_x : m_scale_y;
    const double thickness = static_cast<double>(std::max(1L, std::lround(width * scale)));
    std::vector<Run> sides;
    for (const auto& tooth : teeth) {
        const double side = std::round((upright ? x(tooth.from.x) : y(tooth.from.y)) - thickness / 2);
        add_run(sides, side, side + thickness, upright ? columns : rows);
    }
    const std::vector<Run>& across = upright ? sides : runs;
    const std::vector<Run>& along = upright ? runs : sides;
    for (const Run& band : along)
        for (int row = band.first; row < band.end; ++row)
            for (const Run& run : across)
                brush.fill_row(m_target.first + row * m_target.stride + run.first, run.end - run.first);
}

} // namespace tickervantage
