// Shows a part of a graph and lets people move in it: scroll bars, drag, wheel, trackpad, keys.
//
// The graph's frame may be wider than any widget, so this is no QScrollArea around a widget: it keeps the frame and the
// part in sight in doubles and paints only that part. The frame's right edge, where the newest data is, stays where it
// is when the frame grows.
#pragma once

#include "draw/canvas.h"
#include "gui/common/plot_gestures.h"
#include "qt/qt_canvas.h"

#include <QAbstractScrollArea>

namespace tickervantage {

class PerformanceGraph;

class GraphScrollArea : public QAbstractScrollArea {
    Q_OBJECT

public:
    // The graph must outlive this.
    explicit GraphScrollArea(PerformanceGraph& graph, QWidget* parent = nullptr);

    // The frame follows the graph's data and scales. What stands at the point `about` of the viewport (from its left
    // edge) keeps its time; without it the right edge stays.
    void resize_frame();

    // Changes a horizontal scale with `change`, keeping the time under the pointer where it is.
    void zoom_about(double viewport_x, double zoom);

    void scroll_to_newest();
    void scroll_to_oldest();
    void scroll_to_zero_line(); // upwards and downwards

    [[nodiscard]] Rect frame() const { return m_frame; }
    [[nodiscard]] Rect visible() const; // in the frame's coordinates: the frame's lower left corner is (0, 0)

    // Draws what is in sight on any canvas, for export. With `bounds` of the visible size it is what the screen shows.
    void draw(Canvas& canvas);

Q_SIGNALS:
    void zoom_requested(double steps, double viewport_x); // horizontal; one step is one notch of a wheel
    void vertical_zoom_requested(double steps);
    void fit_requested();            // a double click
    void pointed_at(double frame_x); // the pointer moved over the graph, or the graph beneath the pointer
    void pointer_left();
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void scroll_by(double dx, double dy);
    void redraw();
    void keep_inside();
    void update_scroll_bars();
    void take_scroll_bars();
    void connect_gestures();
    void paint_pointer_line(class QPainter& painter) const;

    PerformanceGraph& m_graph;
    CanvasMemory m_canvas_memory;
    Rect m_frame;
    double m_right_gap = 0;    // points from the right edge in sight to the frame's right edge
    double m_above_center = 0; // points from the middle in sight to the frame's middle, where the zero line runs
    bool m_setting_bars = false;
    PlotGestures* m_gestures;
};

} // namespace tickervantage
