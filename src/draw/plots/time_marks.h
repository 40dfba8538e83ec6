// The labels of a time axis: round times of the zone's own clocks, and beneath them the days, months or years they lie
// in.
//
// A label is true where it stands, also over a change of the clocks: an hour that is skipped has no label, and one that
// comes twice has two. Times are seconds since 1970-01-01 00:00:00 UTC. Pure functions.
#pragma once

#include "base/local_clock.h"

#include <string>
#include <vector>

namespace tickervantage {

struct TimeRange {
    double from = 0;
    double to = 0;

    [[nodiscard]] double length() const { return to - from; }
    friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

struct TimeMark {
    double time = 0;
    std::string label;
};

struct TimeMarks {
    std::vector<TimeMark> times;  // "14:05", "14:05:30"; for long ranges days "11-21", months "2026-11" or years
    std::vector<TimeMark> beyond; // where the day (of days: the year) changes: "2026-11-21"; the first at the left edge
};

// Labels `room` points wide fit between the times; the range is `width` points long. Nothing of a range without length.
[[nodiscard]] TimeMarks time_marks(const TimeRange& range, double width, double room, const ZoneOffset& zone);

// "UTC+01:00"
[[nodiscard]] std::string zone_text(double time, const ZoneOffset& zone);

} // namespace tickervantage
