#include "gui/common/plot_gestures.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QStyleHints>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

constexpr double smallest_frame = 4; // points: less is a click

bool is_click(const QPointF& from, const QPointF& to) {
    return (to - from).manhattanLength() < QGuiApplication::styleHints()->startDragDistance() / 2.0;
}

} // namespace

PlotGestures::PlotGestures(QWidget* surface) : QObject(surface), m_surface(surface) {
    surface->setMouseTracking(true);
    surface->installEventFilter(this);
}

std::optional<PlotGestures::Frame> PlotGestures::frame() const {
    if (!m_frame_from || !m_pointer)
        return std::nullopt;
    return Frame{std::min(m_frame_from->x(), m_pointer->x()), std::max(m_frame_from->x(), m_pointer->x())};
}

void PlotGestures::draw_frame(QPainter& painter) const {
    const auto pulled = frame();
    if (!pulled)
        return;
    QColor shade = m_surface->palette().color(QPalette::Highlight);
    shade.setAlphaF(0.25F);
    painter.fillRect(QRectF(pulled->from, 0, pulled->to - pulled->from, m_surface->height()), shade);
}

bool PlotGestures::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::Wheel:
        take_wheel(*static_cast<QWheelEvent*>(event));
        event->accept();
        return true;
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent*>(event));
        return static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    case QEvent::MouseMove:
        move(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        return true;
    case QEvent::MouseButtonDblClick:
        Q_EMIT fit_requested();
        return true;
    case QEvent::Leave:
        m_pointer.reset();
        Q_EMIT pointer_left();
        return false;
    case QEvent::NativeGesture: {
        constexpr double steps_per_doubling = 4;
        const auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() != Qt::ZoomNativeGesture)
            return false;
        Q_EMIT zoom_requested(gesture->value() * steps_per_doubling, gesture->position().x());
        return true;
    }
    default:
        return false;
    }
}

void PlotGestures::take_wheel(const QWheelEvent& event) {
    constexpr double notch = 120;
    const QPoint angle = event.angleDelta();
    if (std::abs(angle.x()) > std::abs(angle.y()) || event.modifiers().testFlag(Qt::ShiftModifier))
        Q_EMIT scroll_requested(-(angle.x() != 0 ? angle.x() : angle.y()), 0);
    else if (event.modifiers().testFlag(Qt::ControlModifier))
        Q_EMIT vertical_zoom_requested(angle.y() / notch);
    else
        Q_EMIT zoom_requested(angle.y() / notch, event.position().x());
}

void PlotGestures::press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    m_pressed = event.position();
    const bool is_frame = event.modifiers().testFlag(Qt::ShiftModifier) ? m_frames_by_shift : m_frames_by_drag;
    if (is_frame) {
        m_frame_from = event.position();
        m_pointer = event.position();
        m_surface->setCursor(Qt::SizeHorCursor);
        return;
    }
    m_drag_from = event.position();
    m_surface->setCursor(Qt::ClosedHandCursor);
}

void PlotGestures::move(const QMouseEvent& event) {
    m_pointer = event.position();
    if (m_drag_from) {
        const QPointF moved = event.position() - std::exchange(*m_drag_from, event.position());
        Q_EMIT scroll_requested(-moved.x(), -moved.y());
    } else if (m_frame_from) {
        Q_EMIT frame_changed();
    } else {
        Q_EMIT pointed_at(event.position());
    }
}

void PlotGestures::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const auto pulled = frame();
    const auto pressed = std::exchange(m_pressed, std::nullopt);
    m_drag_from.reset();
    m_frame_from.reset();
    m_surface->unsetCursor();
    Q_EMIT frame_changed();
    if (pulled && pulled->to - pulled->from >= smallest_frame)
        Q_EMIT frame_chosen(pulled->from, pulled->to);
    else if (pressed && is_click(*pressed, event.position()))
        Q_EMIT clicked(event.position(), event.modifiers());
}

bool PlotGestures::take_key(const QKeyEvent& event) {
    const double width = m_surface->width();
    switch (event.key()) {
    case Qt::Key_Left:
        Q_EMIT scroll_requested(-width * 0.1, 0);
        break;
    case Qt::Key_Right:
        Q_EMIT scroll_requested(width * 0.1, 0);
        break;
    case Qt::Key_Up:
        Q_EMIT scroll_requested(0, -width * 0.1);
        break;
    case Qt::Key_Down:
        Q_EMIT scroll_requested(0, width * 0.1);
        break;
    case Qt::Key_PageUp:
        Q_EMIT scroll_requested(-width * 0.9, 0);
        break;
    case Qt::Key_PageDown:
        Q_EMIT scroll_requested(width * 0.9, 0);
        break;
    case Qt::Key_Home:
        Q_EMIT oldest_requested();
        break;
    case Qt::Key_End:
        Q_EMIT newest_requested();
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        Q_EMIT zoom_requested(1, width * 0.5);
        break;
    case Qt::Key_Minus:
        Q_EMIT zoom_requested(-1, width * 0.5);
        break;
    default:
        return false;
    }
    return true;
}

} // namespace tickervantage
