#include "gui/freqtemp/freqtemp_plot.h"

#include "qt/accessible_widgets.h"
#include "qt/qt_canvas.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr QSize PREFERRED{760, 420};
constexpr QSize SMALLEST{360, 180};
constexpr int TEXT_MARGIN = 24;
constexpr double KEY_STEP = 0.01; // of the drawing area
constexpr double LONG_KEY_STEP = 0.1;

} // namespace

FreqTempPlot::FreqTempPlot(QWidget* parent) : QWidget(parent) {
    announce_as(this, QAccessible::Chart);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent); // the picture covers it all
}

void FreqTempPlot::set_empty_text(const QString& text) {
    if (m_empty_text == text)
        return;
    m_empty_text = text;
    update();
}

QSize FreqTempPlot::sizeHint() const {
    return PREFERRED;
}

QSize FreqTempPlot::minimumSizeHint() const {
    return SMALLEST;
}

Rect FreqTempPlot::bounds() const {
    return {0, 0, static_cast<double>(width()), static_cast<double>(height())};
}

Rect FreqTempPlot::drawing_area() const {
    constexpr double inset = FreqTempView::INSET_PLOT;
    const Rect all = bounds();
    return {FreqTempView::MARGIN_LEFT + inset, FreqTempView::MARGIN_BOTTOM + inset,
            all.width - FreqTempView::MARGIN_LEFT - FreqTempView::MARGIN_RIGHT - 2 * inset,
            all.height - FreqTempView::MARGIN_BOTTOM - 2 * inset};
}

void FreqTempPlot::view_changed() {
    m_picture = {};
    update();
    point_at(m_pointer);
}

void FreqTempPlot::paintEvent(QPaintEvent*) {
    if (m_picture.isNull()) {
        m_picture = QPixmap(size() * devicePixelRatioF());
        m_picture.setDevicePixelRatio(devicePixelRatioF());
        m_picture.fill(palette().color(QPalette::Window));
        QPainter painter(&m_picture);
        QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()), &m_canvas_memory);
        m_view.draw(canvas, bounds());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (m_view.is_empty())
        paint_empty(painter);
    else
        paint_marker(painter);
}

void FreqTempPlot::paint_empty(QPainter& painter) const {
    const Rect area = drawing_area();
    const QRectF box(area.x, height() - area.y - area.height, area.width, area.height);
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * 1.2);
    painter.setFont(larger);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(box.adjusted(TEXT_MARGIN, 0, -TEXT_MARGIN, 0), Qt::AlignCenter | Qt::TextWordWrap, m_empty_text);
}

void FreqTempPlot::paint_marker(QPainter& painter) const {
    if (!m_reading)
        return;
    if (m_by_key) {
        QColor faint = palette().color(QPalette::Text);
        faint.setAlphaF(0.4F);
        painter.setPen(faint);
        const Rect area = drawing_area();
        const double y = height() - m_pointer->y;
        painter.drawLine(QPointF(m_pointer->x, height() - area.y),
                         QPointF(m_pointer->x, height() - area.y - area.height));
        painter.drawLine(QPointF(area.x, y), QPointF(area.x + area.width, y));
    }
    if (m_reading->near) {
        QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
        m_view.draw_marker(canvas, bounds(), *m_reading->near);
    }
}

void FreqTempPlot::resizeEvent(QResizeEvent*) {
    view_changed();
}

void FreqTempPlot::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange)
        view_changed();
    QWidget::changeEvent(event);
}

void FreqTempPlot::mouseMoveEvent(QMouseEvent* event) {
    m_by_key = false;
    point_at(Point{event->position().x(), height() - event->position().y()});
}

void FreqTempPlot::leaveEvent(QEvent*) {
    if (!m_by_key)
        point_at(std::nullopt);
}

void FreqTempPlot::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason)
        point_at(std::nullopt);
    QWidget::focusOutEvent(event);
}

Point FreqTempPlot::inside(Point position) const {
    constexpr double hair = 1e-3; // rounding must not carry a position over the edge
    const Rect area = drawing_area();
    return {std::clamp(position.x, area.x + hair, area.x + area.width - hair),
            std::clamp(position.y, area.y + hair, area.y + area.height - hair)};
}

std::optional<Point> FreqTempPlot::after_key(const QKeyEvent& event) const {
    const Rect area = drawing_area();
    const double step = event.modifiers().testFlag(Qt::ShiftModifier) ? LONG_KEY_STEP : KEY_STEP;
    Point position = m_pointer.value_or(area.center());
    switch (event.key()) {
    case Qt::Key_Left:
        position.x -= step * area.width;
        break;
    case Qt::Key_Right:
        position.x += step * area.width;
        break;
    case Qt::Key_Up:
        position.y += step * area.height;
        break;
    case Qt::Key_Down:
        position.y -= step * area.height;
        break;
    case Qt::Key_Home:
        position.x = area.x;
        break;
    case Qt::Key_End:
        position.x = area.x + area.width;
        break;
    default:
        return std::nullopt;
    }
    return inside(position);
}

void FreqTempPlot::keyPressEvent(QKeyEvent* event) {
    const auto position = after_key(*event);
    if (position) {
        m_by_key = true;
        point_at(position);
    } else if (event->key() == Qt::Key_Escape && m_pointer) {
        point_at(std::nullopt);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FreqTempPlot::point_at(std::optional<Point> position) {
    m_pointer = position;
    m_reading = position ? m_view.reading_at(*position, bounds()) : std::nullopt;
    update();
    Q_EMIT pointed(m_reading);
}

} // namespace tickervantage
