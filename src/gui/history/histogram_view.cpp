#include "gui/history/histogram_view.h"

#include "gui/history/history_words.h"
#include "qt/accessible_widgets.h"
#include "qt/canvas_colors.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <span>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(history)
};

constexpr int side_margin = 10;
constexpr int title_room = 18;
constexpr int label_room = 18;

} // namespace

HistogramView::HistogramView(QWidget* parent) : QWidget(parent) {
    announce_as(this, QAccessible::Graphic);
}

void HistogramView::show_histogram(const QString& name, AxisUnit unit, const Histogram& histogram,
                                   const ValueSummary& statistics) {
    m_name = name;
    m_unit = unit;
    m_histogram = histogram;
    m_statistics = statistics;
    const auto share = [&statistics](std::size_t at) {
        return at < statistics.percentiles.size() ? statistics.percentiles[at] : NAN;
    };
    //: history window: what a screen reader says of the histogram; %1 is a curve, the others are values
    setAccessibleDescription(
        Texts::tr("%1: from %2 to %3, the middle at %4")
            .arg(name, value_words(share(0), unit), value_words(share(2), unit), value_words(share(1), unit)));
    update();
}

void HistogramView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const CanvasColors colors = CanvasColors::from_palette(palette());
    painter.fillRect(rect(), colors.text_background);
    painter.setPen(colors.text);
    if (m_histogram.counts.empty()) {
        //: history window: in place of the histogram
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, Texts::tr("No values are in sight."));
        return;
    }
    const QRect plot = rect().adjusted(side_margin, title_room, -side_margin, -label_room);
    const auto most = static_cast<double>(std::ranges::max(m_histogram.counts));
    const double width = static_cast<double>(plot.width()) / static_cast<double>(m_histogram.counts.size());
    for (std::size_t bin = 0; bin < m_histogram.counts.size(); ++bin) {
        const double height = plot.height() * static_cast<double>(m_histogram.counts[bin]) / most;
        painter.fillRect(QRectF(plot.left() + static_cast<double>(bin) * width, plot.bottom() - height,
                                std::max(1.0, width - 1), height),
                         colors.blue);
    }
    const double length = m_histogram.high - m_histogram.low;
    const auto place = [&](double value) {
        return plot.left() + (value - m_histogram.low) / length * plot.width();
    };
    painter.setPen(QPen(colors.red, 1, Qt::DashLine));
    for (const double value : std::span(m_statistics.percentiles).first(3))
        painter.drawLine(QPointF(place(value), plot.top()), QPointF(place(value), plot.bottom()));
    painter.setPen(colors.text);
    painter.drawLine(plot.bottomLeft(), plot.bottomRight());
    const QRect labels(plot.left(), plot.bottom() + 1, plot.width(), label_room);
    painter.drawText(labels, Qt::AlignLeft | Qt::AlignVCenter, value_words(m_histogram.low, m_unit));
    painter.drawText(labels, Qt::AlignRight | Qt::AlignVCenter, value_words(m_histogram.high, m_unit));
    //: history window: above the histogram; %1 is a curve, %2 a number
    painter.drawText(QRect(plot.left(), 0, plot.width(), title_room), Qt::AlignLeft | Qt::AlignVCenter,
                     Texts::tr("%1: %2 values; dashed: 5 %, median, 95 %")
                         .arg(m_name, QLocale().toString(static_cast<qlonglong>(m_statistics.count))));
}

} // namespace tickervantage
