// Shows a HistoryView and lets people move in it: drag, wheel, frames pulled open, keys, and the way back. A crosshair
// follows the pointer; two cursors stay where they are put (a click, Shift and a click; the keys A and B). N and P go
// to the next event and the previous one. Main thread.
#pragma once

#include "draw/plots/view_path.h"
#include "gui/common/plot_gestures.h"
#include "gui/common/plot_surface.h"
#include "studies/history/history_view.h"

#include <optional>
#include <vector>

namespace tickervantage {

class HistoryPlot : public PlotSurface {
    Q_OBJECT

public:
    explicit HistoryPlot(QWidget* parent = nullptr);

    // Runs `change` on the view, then draws anew and tells what is now under the pointer.
    template <typename Change>
    void change(const Change& change) {
        change(m_view);
        plot_changed();
    }
    [[nodiscard]] const HistoryView& view() const { return m_view; }

    void set_zooms_by_drag(bool zooms) { m_gestures->set_frames(true, zooms); }

    void go(const TimeRange& range); // a step of the way
    void follow(const TimeRange& range);
    void back();
    void forward();
    [[nodiscard]] const ViewPath& path() const { return m_path; }

    [[nodiscard]] const HistoryPointers& pointers() const { return m_pointers; }
    void set_cursor_at(bool second, std::optional<double> time);

Q_SIGNALS:
    void moved(); // another range is in sight
    void pointers_changed();
    void fit_requested();
    void lane_chosen(const QString& source, double time);
    void marks_pointed_at(const QPoint& place, const std::vector<tickervantage::HistoryMark>& marks);

protected:
    [[nodiscard]] bool is_empty() const override { return !m_view.data().extent(); }
    void draw_plot(Canvas& canvas) const override;
    void draw_over(QPainter& painter) const override;
    void plot_changed() override;
    void pointer_moved(std::optional<Point> position) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connect_gestures();
    void show_range();
    void slide_by(double points);
    void zoom(double steps, double x);
    void show_end(bool newest);
    void click(const QPointF& position, Qt::KeyboardModifiers modifiers);
    [[nodiscard]] bool take_pointer_key(const QKeyEvent& event);
    void move_pointer(double points);
    void point_at_event(bool next);

    HistoryView m_view;
    ViewPath m_path;
    PlotGestures* m_gestures;
    HistoryPointers m_pointers;
};

} // namespace tickervantage
