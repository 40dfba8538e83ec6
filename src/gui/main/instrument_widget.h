// A widget that shows a round instrument: the clock or the meter.
//
// The face is painted once and kept as a picture until the size, the screen's density or the colours change or the
// owner asks; a redraw paints the needles over it, and only where they are and were. Large dials are magnified as a
// whole. Main thread. The draw functions are called while painting and must stay valid as long as the widget lives.
#pragma once

#include "draw/canvas.h"

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <vector>

class QPainter;

namespace tickervantage {

class InstrumentWidget : public QWidget {
    Q_OBJECT
public:
    using Draw = std::function<void(Canvas&, Rect)>;

    InstrumentWidget(Draw draw_face, Draw draw_hands, QWidget* parent = nullptr);

    void redraw_hands(); // as the clock does every second
    void redraw_all();   // also the face, as when the meter's scale changed

    // For needles that only stand in so many positions, such as a second hand: the picture of each is painted once and
    // kept. `position` tells, from 0 to count - 1, where they stand now.
    void keep_hand_pictures(std::size_t count, std::function<std::size_t()> position);

    // What the instrument shows, in words, for screen readers. They are told when it changes, so a clock's owner
    // should not set it every second.
    void set_value_text(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return width; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void paint(QPainter& painter, const Draw& draw) const;
    [[nodiscard]] bool face_is_current() const;
    [[nodiscard]] QPixmap painted_face() const;

    [[nodiscard]] QRect hands_area() const;
    void paint_hands(QPainter& painter);
    [[nodiscard]] QPixmap painted_hands(const QRect& area) const;
    void forget_hand_pictures();

    Draw m_draw_face;
    Draw m_draw_hands;
    QPixmap m_face; // null: to be painted
    QRect m_hands;  // where the needles stand on the screen

    struct HandPicture {
        QRect area;
        QPixmap picture; // null: to be painted
    };
    std::vector<HandPicture> m_hand_pictures; // by position; empty: none are kept
    std::function<std::size_t()> m_position;
};

} // namespace tickervantage
