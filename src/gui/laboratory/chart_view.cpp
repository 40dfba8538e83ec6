#include "gui/laboratory/chart_view.h"

#include "qt/local_number.h"

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>

#include <utility>

namespace tickervantage {

ChartView::ChartView(QWidget* parent)
    : PlotSurface(parent, {.preferred = QSize(700, 360), .smallest = QSize(280, 170)}) {}

void ChartView::set_chart(LogChart chart) {
    m_chart = std::move(chart);
    m_chart.decimal_point = QLocale().decimalPoint().toStdString();
    setAccessibleDescription({});
    point_at(std::nullopt);
    plot_changed();
}

void ChartView::clear(const QString& reason) {
    m_chart = {};
    set_empty_text(reason);
    setAccessibleDescription(reason);
    point_at(std::nullopt);
    plot_changed();
}

void ChartView::point_at(std::optional<ChartPlace> place) {
    if (m_pointed == place)
        return;
    m_pointed = place;
    update();
    Q_EMIT pointed_changed();
}

void ChartView::draw_plot(Canvas& canvas) const {
    if (!is_empty())
        draw_on(canvas, bounds());
}

void ChartView::draw_over(QPainter& painter) const {
    QtCanvas canvas(painter, height(), CanvasColors::from_palette(palette()));
    if (m_pointed)
        draw_pointer(canvas, bounds(), m_chart, *m_pointed);
    if (!hasFocus())
        return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(0, 0, width() - 1, height() - 1);
}

void ChartView::pointer_moved(std::optional<Point> position) {
    point_at(position ? nearest(m_chart, bounds(), *position) : std::nullopt);
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    constexpr int all = 1'000'000;
    switch (event->key()) {
    case Qt::Key_Left:
        return point_at(moved(m_chart, m_pointed, -1));
    case Qt::Key_Right:
        return point_at(moved(m_chart, m_pointed, 1));
    case Qt::Key_Home:
        return point_at(moved(m_chart, m_pointed, -all));
    case Qt::Key_End:
        return point_at(moved(m_chart, m_pointed, all));
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (m_pointed)
            point_at(on_next_curve(m_chart, *m_pointed, event->key() == Qt::Key_Up ? -1 : 1));
        return;
    case Qt::Key_Escape:
        return point_at(std::nullopt);
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace tickervantage
