// One series of the tracking log on an even grid of time.
//
// Records are at uneven times; the transform wants even ones. The walk goes from the newest record to older ones, and
// steps over at most one record a sample: with an interval longer than the spacing of the records it falls behind and
// extrapolates over those that it did not reach. Records that tell of a lost reference measured nothing and are passed
// over. Times as in the log, intervals in seconds, values in the series' unit.
// Pure functions; any thread that may read the records.
#pragma once

#include "studies/tracking/tracking_records.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tickervantage {

struct TimedValue {
    LogTime time = 0;
    double value = 0; // NaN: absent
    friend bool operator==(const TimedValue&, const TimedValue&) = default;
};

// Of the samples, those that do not lie between the two records they were taken from.
struct DoubtfulSamples {
    std::size_t extrapolated = 0;   // on the line through two records, but before or after both of them
    std::size_t before_records = 0; // older than the records go: zero
    friend bool operator==(const DoubtfulSamples&, const DoubtfulSamples&) = default;
};

// The records that the walk can reach: a small part of a long log. They are read in as many turns as the caller likes,
// so that an interface stays awake over a million of them.
class ReachableRecords {
public:
    ReachableRecords(const TrackingRecords& records, Series series, std::size_t count, double interval);

    // Whether the log still holds what it held at the start; it may have grown.
    [[nodiscard]] bool are_still_in(const TrackingRecords& records) const;

    // Reads at most so many further records. True: all are there.
    [[nodiscard]] bool read(const TrackingRecords& records, std::size_t most);

    // Hands them over, in the log's order.
    [[nodiscard]] std::vector<TimedValue> take();

private:
    [[nodiscard]] bool are_complete() const;

    Series m_series;
    std::size_t m_most;   // no walk reaches further
    double m_span;        // seconds from the newest of them to the oldest sample
    std::size_t m_size;   // of the log at the start
    LogTime m_newest = 0; // these two: times of the log's last record then, and of the last that was read
    LogTime m_read_to = 0;
    std::size_t m_next;                // records before this one are still to be read
    std::vector<TimedValue> m_records; // newest first
};

// `count` samples, oldest first; the newest lies one interval after the last record. Samples older than the records are
// zero, and all are with fewer than two records: all count as older then. 0; or -1 when a record on the way has no
// value, with its time.
[[nodiscard]] int resample_series(std::span<const TimedValue> records, std::size_t count, double interval,
                                  std::vector<double>& samples, LogTime& absent_at,
                                  DoubtfulSamples* doubtful = nullptr);

} // namespace tickervantage
