// A widget that shows a round instrument: the clock or the meter.
//
// The face is painted once and kept as a picture until the size, the screen's density or the colours change or the
// owner asks; a redraw paints the needles over it, and only where they are and were. Large dials are magnified as a
// whole. Main thread.
#pragma once

#include "draw/canvas.h"

#include <QPixmap>
#include <QWidget>

#include <vector>

class QPainter;

namespace tickervantage {

class InstrumentWidget : public QWidget {
    Q_OBJECT
public:
    // Of needles that only stand in `hand_positions` places, such as a second hand, the picture of each is painted once
    // and kept. 0: they may stand anywhere.
    explicit InstrumentWidget(QWidget* parent = nullptr, std::size_t hand_positions = 0);

    void redraw_hands(); // as the clock does every second
    void redraw_all();   // also the face, as when the meter's scale changed

    // What the instrument shows, in words, for screen readers. They are told when it changes, so a clock's owner
    // should not set it every second.
    void set_value_text(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override { return width; }

protected:
    virtual void draw_face(Canvas& canvas, Rect bounds) = 0;
    virtual void draw_hands(Canvas& canvas, Rect bounds) const = 0;
    // In which of the places the needles stand now, from 0.
    [[nodiscard]] virtual std::size_t hand_position() const { return 0; }

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    template <class Draw>
    void paint(QPainter& painter, const Draw& draw) const;
    [[nodiscard]] bool face_is_current() const;
    [[nodiscard]] QPixmap painted_face();

    [[nodiscard]] QRect hands_area() const;
    QRect paint_hands(QPainter& painter); // where they stand
    [[nodiscard]] QPixmap painted_hands(const QRect& area) const;
    void forget_hand_pictures();

    QPixmap m_face;  // null: to be painted
    QRegion m_hands; // where needles were painted since the last call of redraw_hands

    struct HandPicture {
        QRect area;
        QPixmap picture; // null: to be painted
    };
    std::vector<HandPicture> m_hand_pictures; // by position; empty: none are kept
};

} // namespace tickervantage
