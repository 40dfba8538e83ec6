// The axes of a time-series graph: time leftwards from its origin, values up and down from a zero line, labels, grid.
//
// Below the zero line stand the times, and at the lower edge in sight the dates, each right of a mark where its day
// begins; the date of the day that began out of sight stands at the left.
//
// Everything follows from the record below; nothing is kept between two frames. Only what lies in sight is walked, so
// that a frame that is wide enough for a log of years costs no more than one that fits on the screen. Points of the
// graph's frame, y up; the canvas shows the frame's own coordinates. One thread.
#pragma once

#include "base/local_clock.h"
#include "draw/canvas.h"
#include "draw/plots/value_scale.h"

#include <cstdint>

namespace tickervantage {

struct AxesInput {
    Rect bounds;       // of the frame
    Rect visible;      // the part in sight
    double time = 0;   // the moment at the time origin, seconds since 1970 UTC
    double xscale = 0; // points a second
    double right_margin = 60;
    ValueScale values;
    Ink color;
    ZoneOffset zone; // of the labels' times and dates
};

void draw_axes(Canvas& canvas, const AxesInput& input, Point origin);

// Seconds between two ticks: the smallest whole number of minutes that is at least 5 points long, and from 2 minutes on
// the next multiple of 5 minutes. 0 when the scale is no positive number or too small for any tick.
[[nodiscard]] std::int64_t minor_time_step(double xscale);

// From 7 for full hours to 3 for odd minutes. The moment is counted from 2001-01-01 00:00:00 UTC.
[[nodiscard]] double tick_half_length(std::int64_t moment);

// Seconds between two labelled times: the shortest round interval that is longer than a label's worth of room, 30
// points. Labels stand at its multiples, counted as above, whether or not a tick stands there. 0: there is none.
[[nodiscard]] std::int64_t time_label_interval(double xscale);

// Days between two dates: as few as have room for one, whole weeks where they are more than 2. 0 as minor_time_step.
[[nodiscard]] std::int64_t date_label_days(double xscale);

} // namespace tickervantage
