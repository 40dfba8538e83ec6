#include "gui/main/instrument_widget.h"

#include "draw/canvases.h"
#include "draw/instruments/dial.h"
#include "qt/accessible_widgets.h"
#include "qt/qt_canvas.h"

#include <QEvent>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <utility>

namespace tickervantage {

namespace {

constexpr int PREFERRED_SIDE = 200;
constexpr int SMALLEST_SIDE = 120;

} // namespace

InstrumentWidget::InstrumentWidget(QWidget* parent, std::size_t hand_positions)
    : QWidget(parent), m_hand_pictures(hand_positions) {
    announce_as(this, QAccessible::Graphic);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void InstrumentWidget::redraw_hands() {
    update(std::exchange(m_hands, {}));
    update(hands_area());
}

void InstrumentWidget::redraw_all() {
    m_face = {};
    update();
}

void InstrumentWidget::forget_hand_pictures() {
    m_hand_pictures.assign(m_hand_pictures.size(), {});
}

void InstrumentWidget::set_value_text(const QString& text) {
    if (text != accessibleDescription())
        setAccessibleDescription(text); // tells those who listen, if any
}

QSize InstrumentWidget::sizeHint() const {
    return {PREFERRED_SIDE, PREFERRED_SIDE};
}

QSize InstrumentWidget::minimumSizeHint() const {
    return {SMALLEST_SIDE, SMALLEST_SIDE};
}

void InstrumentWidget::changeEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
    case QEvent::StyleChange:
        forget_hand_pictures();
        redraw_all();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
}

void InstrumentWidget::resizeEvent(QResizeEvent* event) {
    forget_hand_pictures();
    QWidget::resizeEvent(event);
}

void InstrumentWidget::paintEvent(QPaintEvent* event) {
    if (!face_is_current())
        m_face = painted_face();
    QPainter painter(this);
    const QRect area = event->rect();
    const double density = devicePixelRatioF();
    painter.drawPixmap(area, m_face,
                       QRectF(area.x() * density, area.y() * density, area.width() * density, area.height() * density));
    // Remembered where it is painted: a new size, or a picture of another moment, needs no word from the owner.
    if (area == rect())
        m_hands = {};
    m_hands += paint_hands(painter);
}

template <class Draw>
void InstrumentWidget::paint(QPainter& painter, const Draw& draw) const {
    const double magnification = dial_magnification(std::min(width(), height()));
    painter.scale(magnification, magnification);
    const Rect bounds{0, 0, width() / magnification, height() / magnification};
    QtCanvas canvas(painter, bounds.height, CanvasColors::from_palette(palette()));
    draw(canvas, bounds);
}

// Painting a smooth line costs a good part of a millisecond, copying its picture a few microseconds.
QRect InstrumentWidget::paint_hands(QPainter& painter) {
    const std::size_t position = hand_position();
    if (position >= m_hand_pictures.size()) {
        paint(painter, [this](Canvas& canvas, Rect bounds) { draw_hands(canvas, bounds); });
        return hands_area();
    }
    HandPicture& kept = m_hand_pictures[position];
    if (kept.picture.isNull() || kept.picture.devicePixelRatioF() != devicePixelRatioF()) {
        kept.area = hands_area();
        kept.picture = painted_hands(kept.area);
    }
    painter.drawPixmap(kept.area.topLeft(), kept.picture);
    return kept.area;
}

QPixmap InstrumentWidget::painted_hands(const QRect& area) const {
    QPixmap picture(area.size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.translate(-area.topLeft());
    paint(painter, [this](Canvas& canvas, Rect bounds) { draw_hands(canvas, bounds); });
    return picture;
}

bool InstrumentWidget::face_is_current() const {
    return m_face.size() == size() * devicePixelRatioF() && m_face.devicePixelRatioF() == devicePixelRatioF();
}

QPixmap InstrumentWidget::painted_face() {
    QPixmap face(size() * devicePixelRatioF());
    face.setDevicePixelRatio(devicePixelRatioF());
    face.fill(Qt::transparent);
    QPainter painter(&face);
    paint(painter, [this](Canvas& canvas, Rect bounds) { draw_face(canvas, bounds); });
    return face;
}

QRect InstrumentWidget::hands_area() const {
    constexpr double shadow = 4; // how far a needle's shadow reaches
    const double magnification = dial_magnification(std::min(width(), height()));
    const Rect bounds{0, 0, width() / magnification, height() / magnification};
    BoundsCanvas canvas;
    draw_hands(canvas, bounds);
    const Rect box = canvas.bounds(shadow);
    return QRectF(box.x * magnification, (bounds.height - box.y - box.height) * magnification,
                  box.width * magnification, box.height * magnification)
        .toAlignedRect();
}

} // namespace tickervantage
