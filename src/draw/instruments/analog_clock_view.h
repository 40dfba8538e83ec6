// A clock face with hour, minute and second hands.
//
// Lengths are points, y up. The time is asked for whenever the hands are drawn; whoever shows the clock asks for the
// redraws. Hours may run from 0 to 23. One thread at a time.
#pragma once

#include "draw/canvas.h"

#include <functional>
#include <optional>

namespace tickervantage {

struct ClockTime {
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class AnalogClockView {
public:
    static constexpr double clockIntervals = 60.0; // divisions of the dial

    explicit AnalogClockView(std::function<ClockTime()> local_time);

    void draw(Canvas& canvas, Rect bounds);

    // What draw is made of, from back to front: what never moves, what barely moves, and the second hand with the hub.
    // A clock shown on a screen keeps the first two as a picture.
    void draw_face(Canvas& canvas, Rect bounds);
    void draw_slow_hands(Canvas& canvas, Rect bounds) const;
    void draw_second_hand(Canvas& canvas, Rect bounds) const;

    // Where the hands point, in divisions clockwise from straight up. An hour hand after noon goes beyond 60.
    [[nodiscard]] static double hour_value(ClockTime time);
    [[nodiscard]] static double minute_value(ClockTime time);

private:
    static void slow_hands(Canvas& canvas, Rect bounds, ClockTime time);
    static void second_hand(Canvas& canvas, Rect bounds, ClockTime time);

    std::function<ClockTime()> m_local_time;
    std::optional<Path> m_ticks;
    Rect m_ticks_bounds;
};

} // namespace tickervantage
