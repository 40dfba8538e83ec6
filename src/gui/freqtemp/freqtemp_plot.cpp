#include "gui/freqtemp/freqtemp_plot.h"

#include "qt/qt_canvas.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace tickervantage {
namespace {

constexpr double KEY_STEP = 0.01; // of the drawing area
constexpr double LONG_KEY_STEP = 0.1;

} // namespace

FreqTempPlot::FreqTempPlot(QWidget* parent)
    : PlotSurface(parent, {.preferred = QSize(760, 420), .smallest = QSize(360, 180)}, QPalette::Window) {}

Rect FreqTempPlot::drawing_area() const {
    constexpr double inset = FreqTempView::INSET_PLOT;
    const Rect all = bounds();
    return {FreqTempView::MARGIN_LEFT + inset, FreqTempView::MARGIN_BOTTOM + inset,
            all.width - FreqTempView::MARGIN_LEFT - FreqTempView::MARGIN_RIGHT - 2 * inset,
            all.height - FreqTempView::MARGIN_BOTTOM - 2 * inset};
}

void FreqTempPlot::plot_changed() {
    PlotSurface::plot_changed();
    pointer_moved(m_pointer);
}

QRectF FreqTempPlot::text_area() const {
    const Rect area = drawing_area();
    return {area.x, height() - area.y - area.height, area.width, area.height};
}

void FreqTempPlot::draw_over(QPainter& painter) const {
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

void FreqTempPlot::mouseMoveEvent(QMouseEvent* event) {
    m_by_key = false;
    PlotSurface::mouseMoveEvent(event);
}

void FreqTempPlot::leaveEvent(QEvent* event) {
    if (!m_by_key)
        PlotSurface::leaveEvent(event);
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
        pointer_moved(position);
    } else if (event->key() == Qt::Key_Escape && m_pointer) {
        pointer_moved(std::nullopt);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void FreqTempPlot::pointer_moved(std::optional<Point> position) {
    m_pointer = position;
    m_reading = position ? m_view.reading_at(*position, bounds()) : std::nullopt;
    update();
    Q_EMIT pointed(m_reading);
}

} // namespace tickervantage
