#include "gui/common/plot_surface.h"

#include "qt/accessible_widgets.h"

#include <QEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tickervantage {
namespace {

constexpr double text_margin = 24;
constexpr double larger = 1.2; // than the window's other text

} // namespace

PlotSurface::PlotSurface(QWidget* parent, Sizes sizes, QPalette::ColorRole background)
    : QWidget(parent), m_sizes(sizes), m_background(background) {
    announce_as(this, QAccessible::Chart);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent); // the picture covers it all
}

void PlotSurface::set_empty_text(const QString& text) {
    if (m_empty_text == text)
        return;
    m_empty_text = text;
    update();
}

QRectF PlotSurface::text_area() const {
    return QRectF(rect()).adjusted(0, text_margin, 0, -text_margin);
}

void PlotSurface::plot_changed() {
    m_picture = {};
    update();
}

void PlotSurface::plot_went_on() {
    m_is_behind = true;
    update();
}

bool PlotSurface::update_picture() {
    QPainter painter(&m_picture);
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()), &m_canvas_memory);
    return update_plot(canvas);
}

void PlotSurface::paint_picture() {
    m_picture = QPixmap(size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(palette().color(m_background));
    QPainter painter(&m_picture);
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()), &m_canvas_memory);
    draw_plot(canvas);
}

void PlotSurface::paintEvent(QPaintEvent*) {
    if (m_picture.size() != size() * devicePixelRatioF() || m_picture.devicePixelRatioF() != devicePixelRatioF() ||
        (m_is_behind && !update_picture()))
        paint_picture();
    m_is_behind = false;
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (is_empty())
        paint_empty(painter);
    else
        draw_over(painter);
}

void PlotSurface::paint_empty(QPainter& painter) const {
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * larger);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(text_area().adjusted(text_margin, 0, -text_margin, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     m_empty_text);
}

void PlotSurface::draw_focus(QPainter& painter) const {
    if (!hasFocus())
        return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(0, 0, width() - 1, height() - 1);
}

void PlotSurface::resizeEvent(QResizeEvent*) {
    plot_changed();
}

void PlotSurface::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::ApplicationFontChange || event->type() == QEvent::StyleChange)
        plot_changed();
    QWidget::changeEvent(event);
}

void PlotSurface::mouseMoveEvent(QMouseEvent* event) {
    pointer_moved(flipped(event->position()));
}

void PlotSurface::leaveEvent(QEvent* /*event*/) {
    pointer_moved(std::nullopt);
}

void PlotSurface::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason)
        pointer_moved(std::nullopt);
    QWidget::focusOutEvent(event);
}

} // namespace tickervantage
