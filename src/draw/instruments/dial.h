// The round face that the clock and the meter share: ring, ticks, labels, needle and hub.
//
// Lengths are points, y up. A dial is divided into `intervals` equal steps of a full turn; position 0 lies on the
// positive x axis and positions grow counter-clockwise, so that a quarter of the intervals is straight up. Positions
// beyond a full turn wrap. Plain values; main thread or any other, one at a time.
#pragma once

#include "draw/canvas.h"

#include <string_view>

namespace tickervantage {

// Up to this side the ticks and labels keep their size while the dial grows. A larger dial is this one magnified, so
// that its figures can still be read from as far away as the dial itself.
inline constexpr double DIAL_LAYOUT_SIDE = 240.0;

// How many times a dial that is shown `side` wide is magnified: 1 or more. Draw it side / magnification wide.
[[nodiscard]] double dial_magnification(double side);

// The largest square in the middle of `bounds`.
[[nodiscard]] Rect dial_square(Rect bounds);

struct Needle {
    double position = 0;
    double length = 1; // as a share of the needle radius; the tail is always 0.2 of it
    double width = 1;
    ColorRole color = ColorRole::text;
};

class Dial {
public:
    Dial(Rect bounds, double intervals); // bounds that are not square are cut to the square in their middle

    // The point `inset` inside the face's edge at a position.
    [[nodiscard]] Point point(double inset, double position) const;
    [[nodiscard]] Rect face() const;

    // Adds the mark that runs from the face's edge inwards.
    void add_tick(Path& path, double position, double length) const;

    void draw_face(Canvas& canvas) const;
    void draw_label(Canvas& canvas, std::string_view text, double inset, double position, double box_width) const;
    void draw_needle(Canvas& canvas, const Needle& needle) const;
    void draw_hub(Canvas& canvas) const;

private:
    Rect m_bounds;
    double m_face_radius;
    double m_step; // radians from one position to the next
};

} // namespace tickervantage
