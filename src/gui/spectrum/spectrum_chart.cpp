#include "gui/spectrum/spectrum_chart.h"

#include "qt/accessible_widgets.h"
#include "qt/qt_canvas.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

constexpr QSize PREFERRED{640, 340};
constexpr QSize SMALLEST{420, 180};
constexpr int TEXT_MARGIN = 24;

// The bin that a key leads to; none for other keys.
std::optional<std::size_t> bin_after(int key, std::size_t bin, std::size_t last) {
    switch (key) {
    case Qt::Key_Left:
        return bin - std::min<std::size_t>(bin, 1);
    case Qt::Key_Right:
        return std::min(bin + 1, last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

} // namespace

SpectrumChart::SpectrumChart(QWidget* parent) : QWidget(parent) {
    announce_as(this, QAccessible::Chart);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void SpectrumChart::set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum) {
    m_view.set_spectrum(std::move(spectrum));
    point_at(std::nullopt);
    repaint_chart();
}

void SpectrumChart::set_empty_text(const QString& text) {
    if (m_empty_text == text)
        return;
    m_empty_text = text;
    repaint_chart();
}

QSize SpectrumChart::sizeHint() const {
    return PREFERRED;
}

QSize SpectrumChart::minimumSizeHint() const {
    return SMALLEST;
}

Rect SpectrumChart::bounds() const {
    return {0, 0, static_cast<double>(width()), static_cast<double>(height())};
}

void SpectrumChart::repaint_chart() {
    m_picture = {};
    update();
}

QPixmap SpectrumChart::picture() const {
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(palette().color(QPalette::Base));
    QPainter painter(&picture);
    if (m_view.spectrum()) {
        QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
        m_view.draw(canvas, bounds());
    } else {
        paint_empty(painter);
    }
    return picture;
}

void SpectrumChart::paint_empty(QPainter& painter) const {
    painter.setPen(palette().color(QPalette::Text));
    painter.drawRect(0, 0, width() - 1, height() - 1);
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * 1.2);
    painter.setFont(larger);
    painter.drawText(rect().adjusted(TEXT_MARGIN, TEXT_MARGIN, -TEXT_MARGIN, -TEXT_MARGIN),
                     Qt::AlignCenter | Qt::TextWordWrap, m_empty_text);
}

void SpectrumChart::paint_marker(QPainter& painter) const {
    if (!m_pointed)
        return;
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    m_view.draw_marker(canvas, bounds(), m_pointed->bin);
}

void SpectrumChart::paintEvent(QPaintEvent*) {
    if (m_picture.size() != size() * devicePixelRatioF() || m_picture.devicePixelRatioF() != devicePixelRatioF())
        m_picture = picture();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    paint_marker(painter);
}

void SpectrumChart::changeEvent(QEvent* event) {
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
    case QEvent::StyleChange:
        repaint_chart();
        break;
    default:
        break;
    }
    QWidget::changeEvent(event);
}

void SpectrumChart::mouseMoveEvent(QMouseEvent* event) {
    point_at(m_view.reading_at(event->position().x(), bounds()));
}

void SpectrumChart::leaveEvent(QEvent*) {
    point_at(std::nullopt);
}

void SpectrumChart::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason)
        point_at(std::nullopt);
    QWidget::focusOutEvent(event);
}

void SpectrumChart::keyPressEvent(QKeyEvent* event) {
    const std::size_t bars = m_view.bars();
    const auto bin = bars == 0 ? std::nullopt : bin_after(event->key(), m_pointed ? m_pointed->bin : 0, bars - 1);
    if (bin)
        point_at(m_view.reading_of(*bin));
    else
        QWidget::keyPressEvent(event);
}

void SpectrumChart::point_at(std::optional<SpectrumReading> reading) {
    if (m_pointed == reading)
        return;
    m_pointed = reading;
    update();
    Q_EMIT pointed(m_pointed);
}

} // namespace tickervantage
