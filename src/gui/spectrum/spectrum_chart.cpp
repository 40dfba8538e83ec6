#include "gui/spectrum/spectrum_chart.h"

#include "qt/qt_canvas.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace tickervantage {
namespace {

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

SpectrumChart::SpectrumChart(QWidget* parent)
    : PlotSurface(parent, {.preferred = QSize(640, 340), .smallest = QSize(420, 180)}) {}

void SpectrumChart::set_spectrum(std::shared_ptr<const ComputedSpectrum> spectrum) {
    m_view.set_spectrum(std::move(spectrum));
    show_reading(std::nullopt);
    plot_changed();
}

// Without a spectrum no more than the frame.
void SpectrumChart::draw_plot(Canvas& canvas) const {
    if (m_view.spectrum()) {
        m_view.draw(canvas, bounds());
        return;
    }
    Path frame;
    frame.add_rounded_rect({0.5, 0.5, width() - 1.0, height() - 1.0}, 0, 0);
    canvas.stroke(frame, {.ink = ColorRole::text});
}

void SpectrumChart::draw_over(QPainter& painter) const {
    if (!m_pointed)
        return;
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    m_view.draw_marker(canvas, bounds(), m_pointed->bin);
}

void SpectrumChart::pointer_moved(std::optional<Point> position) {
    show_reading(position ? m_view.reading_at(position->x, bounds()) : std::nullopt);
}

void SpectrumChart::keyPressEvent(QKeyEvent* event) {
    const std::size_t bars = m_view.bars();
    const auto bin = bars == 0 ? std::nullopt : bin_after(event->key(), m_pointed ? m_pointed->bin : 0, bars - 1);
    if (bin)
        show_reading(m_view.reading_of(*bin));
    else
        QWidget::keyPressEvent(event);
}

void SpectrumChart::show_reading(std::optional<SpectrumReading> reading) {
    if (m_pointed == reading)
        return;
    m_pointed = reading;
    update();
    Q_EMIT pointed(m_pointed);
}

} // namespace tickervantage
