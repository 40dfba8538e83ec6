// The graph of chrony's tracking log: nine series over the time axis of a PerformanceGraph.
//
// Takes the log line by line and keeps its records; draws every shown series in its colour, thinned to what can be
// seen, so that a frame costs the same for an hour as for a year. Coordinates as in performance_graph.h: the frame's
// own, in points. Main thread only.
#pragma once

#include "base/color.h"
#include "draw/plots/performance_graph.h"
#include "studies/tracking/series_layout.h"
#include "studies/tracking/time_stretches.h"
#include "studies/tracking/tracking_records.h"
#include "studies/tracking/value_fit.h"

#include <array>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace tickervantage {

// The times of the log's first and last record, seconds since 1970 UTC; in that order even if the clock was stepped.
struct LogEnds {
    LogTime first = 0;
    LogTime last = 0;
    friend bool operator==(const LogEnds&, const LogEnds&) = default;
};

// One record as people read it off the graph.
struct Readout {
    std::size_t record = 0;
    LogTime time = 0;
    double x = 0;                              // where the record stands in the frame
    std::array<double, series_count> values{}; // NaN: absent
};

class TrackingView : public PerformanceGraph {
public:
    explicit TrackingView(GraphParts parts);

    std::array<Color, series_count> colors{};
    std::array<bool, series_count> shown{};

    // One line of the log. A live log leaves out records that are older than the range of time shown. The ends of what
    // is held afterwards; none while nothing is.
    std::optional<LogEnds> add_line(std::string_view line);
    void clear();

    // A finished log's time axis ends with its newest record. Only while paused, and not of an empty log.
    void end_with_log() { pauseTime = static_cast<double>(m_latest); }

    // The horizontal zoom with which so many seconds fit into a frame of that width; of the whole log without them.
    // None: the log has no length.
    [[nodiscard]] std::optional<double> zoom_to_hold(double width, std::optional<double> seconds = std::nullopt) const;

    [[nodiscard]] const TrackingRecords& records() const { return m_chronytracking; }

    // The record nearest to an x coordinate, of those up to the right end; none when nothing is drawn.
    [[nodiscard]] std::optional<Readout> readout(double x, Rect bounds) const;

    // The records in the part in sight, in runs of neighbours; several only where the clock was stepped back.
    [[nodiscard]] std::vector<RecordSpan> in_sight(Rect bounds, Rect visible) const;

    // The vertical settings that suit the shown series in sight; none when nothing of them is.
    [[nodiscard]] std::optional<ValueFit> fit(Rect bounds, Rect visible) const;

protected:
    void drawData(Canvas& canvas, Point origin, Rect visible) override;
    [[nodiscard]] double dataTimespan() const override;
    [[nodiscard]] OffsetRange dataRange() const override;

private:
    [[nodiscard]] TimeAxis time_axis(Point origin) const;
    void cover_later_records(Canvas& canvas, Point origin, Rect visible) const;

    TrackingRecords m_chronytracking;
    TimeStretches m_stretches;
    LogTime m_latest = std::numeric_limits<LogTime>::min(); // of all records' times
    TrackingRecords::AllValues m_values_in_sight;           // empty between frames; kept for its memory
};

} // namespace tickervantage
