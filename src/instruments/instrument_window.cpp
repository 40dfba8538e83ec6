#include "instruments/instrument_window.h"

#include "instruments/dial.h"
#include "platform/qt/qt_canvas.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tickervantage {

namespace {

constexpr int PREFERRED_SIDE = 200;
constexpr int SMALLEST_SIDE = 150;

// Screen readers read a picture's name and description; a plain widget they pass over.
QAccessibleInterface* make_accessible(const QString& class_name, QObject* object) {
    if (class_name != QLatin1String(InstrumentWidget::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Graphic);
}

} // namespace

InstrumentWidget::InstrumentWidget(Draw draw_face, Draw draw_hands, QWidget* parent)
    : QWidget(parent), m_draw_face(std::move(draw_face)), m_draw_hands(std::move(draw_hands)) {
    QAccessible::installFactory(make_accessible); // again is harmless
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void InstrumentWidget::redraw_hands() {
    update();
}

void InstrumentWidget::redraw_all() {
    m_face = {};
    update();
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
        redraw_all();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
}

void InstrumentWidget::paintEvent(QPaintEvent*) {
    if (!face_is_current())
        m_face = painted_face();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_face);
    paint(painter, m_draw_hands);
}

bool InstrumentWidget::face_is_current() const {
    return m_face.size() == size() * devicePixelRatioF() && m_face.devicePixelRatioF() == devicePixelRatioF();
}

QPixmap InstrumentWidget::painted_face() const {
    QPixmap face(size() * devicePixelRatioF());
    face.setDevicePixelRatio(devicePixelRatioF());
    face.fill(Qt::transparent);
    QPainter painter(&face);
    paint(painter, m_draw_face);
    return face;
}

void InstrumentWidget::paint(QPainter& painter, const Draw& draw) const {
    const double magnification = dial_magnification(std::min(width(), height()));
    painter.scale(magnification, magnification);
    const Rect bounds{0, 0, width() / magnification, height() / magnification};
    QtCanvas canvas(painter, bounds.height, CanvasColors::from_palette(palette()));
    draw(canvas, bounds);
}

} // namespace tickervantage
