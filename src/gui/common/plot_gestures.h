// What hands do on a plot, as movements in it: wheel and trackpad, drag, a frame pulled open, double click, keys. The
// same in every window, so that one who has learnt it in one knows it in all.
//
// Left button: drags the plot, or with Shift held pulls a frame open to zoom to. Wheel: zooms about the pointer; with
// Ctrl the values; with Shift, and sideways, scrolls. Double click: all of it. Keys: arrows, Page Up and Down, Home,
// End, plus and minus. Points of the surface, y down. Main thread.
#pragma once

#include <QObject>
#include <QPointF>

#include <optional>

class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;
class QWidget;

namespace tickervantage {

class PlotGestures : public QObject {
    Q_OBJECT
public:
    // Sees the surface's events before it does, and takes those that it understands; keys are handed to take_key().
    explicit PlotGestures(QWidget* surface);

    // What the left button does without Shift, where there are frames at all.
    void set_frames(bool by_shift, bool by_drag) {
        m_frames_by_shift = by_shift;
        m_frames_by_drag = by_drag;
    }

    [[nodiscard]] std::optional<QPointF> pointer() const { return m_pointer; }
    [[nodiscard]] bool is_dragging() const { return m_drag_from.has_value(); }

    struct Frame {
        double from; // x
        double to;
    };
    [[nodiscard]] std::optional<Frame> frame() const; // that is being pulled open
    void draw_frame(QPainter& painter) const;

    // Whether it was a key of these.
    [[nodiscard]] bool take_key(const QKeyEvent& event);

Q_SIGNALS:
    void pointed_at(const QPointF& position);
    void pointer_left();
    void scroll_requested(double dx, double dy); // the part in sight moves so far over the plot, right and down
    void zoom_requested(double steps, double x); // one step is one notch of a wheel
    void vertical_zoom_requested(double steps);
    void fit_requested();
    void oldest_requested();
    void newest_requested();
    void frame_changed();
    void frame_chosen(double from, double to);                              // x, in that order
    void clicked(const QPointF& position, Qt::KeyboardModifiers modifiers); // pressed and released in one place

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void take_wheel(const QWheelEvent& event);
    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);

    QWidget* m_surface;
    bool m_frames_by_shift = false;
    bool m_frames_by_drag = false;
    std::optional<QPointF> m_pointer;
    std::optional<QPointF> m_pressed;    // where the left button went down
    std::optional<QPointF> m_drag_from;  // where the plot was dragged to so far
    std::optional<QPointF> m_frame_from; // where a frame begins
};

} // namespace tickervantage
