// The axes of a time-series graph: time leftwards from its origin, values up and down from a zero line, labels, grid.
//
// Everything follows from the record below; nothing is kept between two frames. Only what lies in sight is walked, so
// that a frame that is wide enough for a log of years costs no more than one that fits on the screen. Points of the
// graph's frame, y up; the canvas shows the frame's own coordinates. One thread.
#pragma once

#include "graphs/value_scale.h"
#include "platform/canvas.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tickervantage {

// Writes a moment (seconds since 1970-01-01 00:00:00 UTC) as "HH:mm" of the user's time zone.
using FormatTime = std::function<std::string(std::int64_t)>;

// The machine's own time zone.
[[nodiscard]] std::string local_hours_minutes(std::int64_t moment);

struct AxesInput {
    Rect bounds;       // of the frame
    Rect visible;      // the part in sight
    double time = 0;   // the moment at the time origin, seconds since 1970 UTC
    double xscale = 0; // points a second
    double right_margin = 60;
    ValueScale values;
    Ink color;
    FormatTime format_time;
};

void draw_axes(Canvas& canvas, const AxesInput& input, Point origin);

// Seconds between two ticks: the smallest whole number of minutes that is at least 5 points long, and from 2 minutes on
// the next multiple of 5 minutes. 0 when the scale is no positive number or too small for any tick.
[[nodiscard]] std::int64_t minor_time_step(double xscale);

// From 7 for full hours to 3 for odd minutes. The moment is counted from 2001-01-01 00:00:00 UTC.
[[nodiscard]] double tick_half_length(std::int64_t moment);

// Whether a label's worth of room, 30 points, lies between the ticks of some round interval that this one belongs to.
[[nodiscard]] bool has_time_label(std::int64_t moment, double xscale);

} // namespace tickervantage
