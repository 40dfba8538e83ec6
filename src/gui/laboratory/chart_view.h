// Shows a LogChart, all of it or a part: the wheel, drags, frames pulled open with Shift, + and − and Page Up and Down
// move in it, Backspace goes back. Each panel shows what its curves do in sight. It tells which point is pointed at:
// with the mouse, or with the arrow keys, which the part in sight follows. Main thread.
#pragma once

#include "draw/plots/log_chart.h"
#include "draw/plots/view_path.h"
#include "gui/common/plot_gestures.h"
#include "gui/common/plot_surface.h"

#include <optional>

namespace tickervantage {

class ChartView : public PlotSurface {
    Q_OBJECT
public:
    explicit ChartView(QWidget* parent = nullptr);

    // In place of the one before: who looks at a part goes on looking at it, and at the same point.
    void set_chart(LogChart chart);
    void clear(const QString& reason);                              // shows the reason instead
    void forget_view();                                             // the next chart is of something else: all of it
    [[nodiscard]] const LogChart& chart() const { return m_chart; } // from and to: in sight
    [[nodiscard]] bool is_empty() const override { return m_chart.panels.empty(); }
    void draw_on(Canvas& canvas, Rect bounds) const { draw_chart(canvas, bounds, m_chart); }

    [[nodiscard]] const std::optional<ChartPlace>& pointed() const { return m_pointed; }
    void point_at(std::optional<ChartPlace> place);

    [[nodiscard]] const ViewPath& path() const { return m_path; } // in logarithms
    [[nodiscard]] bool shows_all() const { return m_path.now() == m_all; }
    void back();
    void forward();
    void show_all();

Q_SIGNALS:
    void pointed_changed();
    void moved(); // another part is in sight

protected:
    void draw_plot(Canvas& canvas) const override;
    void draw_over(QPainter& painter) const override;
    void pointer_moved(std::optional<Point> position) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connect_gestures();
    [[nodiscard]] bool take_pointer_key(int key);
    void point_by_key(std::optional<ChartPlace> place);
    [[nodiscard]] TimeRange held(const TimeRange& range) const; // within the chart
    void slide_to(const TimeRange& range);
    void show_part();
    void slide_by(double points);
    void zoom(double steps, double x);
    void frame(double from, double to);

    LogChart m_chart;
    TimeRange m_all; // of the chart
    ViewPath m_path;
    PlotGestures* m_gestures;
    std::optional<ChartPlace> m_pointed;
};

} // namespace tickervantage
