// How far off a clock was over the last while: the bound as a band to both sides of zero, the offset as a line, and
// below them a lane with the state it was in. Moments at which the state changed are marked.
//
// Values in seconds, moments in seconds since 1970, places in points, y up. Pure; one thread at a time.
#pragma once

#include "base/color.h"
#include "base/local_clock.h"
#include "draw/canvas.h"
#include "draw/plots/interval_scale.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct TrendPoint {
    double time = 0;
    std::optional<double> bound = {};
    std::optional<double> offset = {};
    Color state = {};   // the lane's colour, from here to the next point
    bool joins = false; // goes on from the one before
};

struct TrendStrip {
    Rect bounds;
    double from = 0; // the moments at the field's left and right edge
    double to = 1;
    std::vector<TrendPoint> points = {};                            // oldest first
    std::vector<double> changes = {};                               // of the state
    std::optional<double> pointer = {};                             // the moment that is pointed at
    std::function<std::string(std::int64_t moment)> time_text = {}; // of a moment on the axis
    ZoneOffset zone = machine_zone_offset;
    std::string decimal_point = ".";
    double time_room = 60; // points between two labels on the time axis
};

// Where band and line lie, without the axes.
[[nodiscard]] Rect trend_field(const TrendStrip& strip);
[[nodiscard]] double trend_moment_at(const TrendStrip& strip, double x);
// The newest point that is not later than the moment, unless a gap lies between the two; null: nothing was read then.
[[nodiscard]] const TrendPoint* trend_point_at(const TrendStrip& strip, double moment);

// Seconds between two labels of the time axis: 1, 2 or 5 minutes, or whole parts of an hour or of a day.
[[nodiscard]] std::int64_t trend_time_step(double seconds, double width, double room);

[[nodiscard]] IntervalScale trend_scale(const TrendStrip& strip);
// Of all labels on the value axis ("µs"), so that it need stand but once; empty where they differ.
[[nodiscard]] std::string trend_unit(const TrendStrip& strip);

void draw_trend(Canvas& canvas, const TrendStrip& strip);

} // namespace tickervantage
