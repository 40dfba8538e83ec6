// Where in a log time runs forward, so that it can be searched although the clock was stepped back now and then.
//
// A stretch is a run of records whose times do not decrease; nearly every log is one. Times in seconds since 1970 UTC,
// coordinates in points. Plain records; one thread.
#pragma once

#include "draw/canvas.h"
#include "studies/tracking/tracking_records.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tickervantage {

// Numbers of records, [first, end).
struct RecordSpan {
    std::size_t first = 0;
    std::size_t end = 0;
    friend bool operator==(const RecordSpan&, const RecordSpan&) = default;
};

// How times become x coordinates.
struct TimeAxis {
    Point origin;
    double origin_time = 0;
    double xscale = 0; // points a second, more than 0

    [[nodiscard]] double x(LogTime time) const { return origin.x - (origin_time - static_cast<double>(time)) * xscale; }
};

class TimeStretches {
public:
    // To be called after each record that was added.
    void record_added(const TrackingRecords& records);
    void clear() { m_starts.clear(); }

    // The stretches, those before record `first` left out or cut off.
    [[nodiscard]] std::vector<RecordSpan> from(std::size_t first, std::size_t size) const;

private:
    std::vector<std::size_t> m_starts; // of all stretches but the first
};

// The first record of the span, all of one stretch, whose x is at least `x`; the span's end when none is.
[[nodiscard]] std::size_t first_at(const TrackingRecords& records, const TimeAxis& axis, RecordSpan span, double x);

// Where a walk from the newest record to the older ones ends: at the first whose x is below 0, or at the log's first.
// None when there is nothing to draw: fewer than two records, or the newest left of 0 already.
[[nodiscard]] std::optional<std::size_t> oldest_in_walk(const TrackingRecords& records, const TimeAxis& axis);

} // namespace tickervantage
