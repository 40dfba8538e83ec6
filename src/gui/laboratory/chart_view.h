// Shows a LogChart, and tells which of its points is pointed at: with the mouse, or with the arrow keys. Main thread.
#pragma once

#include "draw/plots/log_chart.h"
#include "gui/common/plot_surface.h"

#include <optional>

namespace tickervantage {

class ChartView : public PlotSurface {
    Q_OBJECT
public:
    explicit ChartView(QWidget* parent = nullptr);

    void set_chart(LogChart chart);
    void clear(const QString& reason); // shows the reason instead
    [[nodiscard]] const LogChart& chart() const { return m_chart; }
    [[nodiscard]] bool is_empty() const override { return m_chart.panels.empty(); }
    void draw_on(Canvas& canvas, Rect bounds) const { draw_chart(canvas, bounds, m_chart); }

    [[nodiscard]] const std::optional<ChartPlace>& pointed() const { return m_pointed; }
    void point_at(std::optional<ChartPlace> place);

Q_SIGNALS:
    void pointed_changed();

protected:
    void draw_plot(Canvas& canvas) const override;
    void draw_over(QPainter& painter) const override;
    void pointer_moved(std::optional<Point> position) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    LogChart m_chart;
    std::optional<ChartPlace> m_pointed;
};

} // namespace tickervantage
