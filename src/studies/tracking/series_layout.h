// Which records fall into which column of pixels: worked out once a frame, used for all series.
#pragma once

#include "draw/canvas.h"
#include "studies/tracking/time_stretches.h"

#include <cstdint>
#include <vector>

namespace tickervantage {

// Neighbouring records that share a column; column 0 is the first in sight. One record on each side of what is in sight
// stands alone in a column that none in sight touches.
struct Cell {
    std::int64_t column = 0;
    RecordSpan records;
    // Of a dense strand: where the line from the record before crosses the boundary of that record's column, and each
    // following one, as shares of its way to this cell's first record.
    double entry = 0;
    double entry_step = 0;
};

// What is in sight of one stretch of the log.
struct Strand {
    std::vector<Cell> cells;
    std::size_t crowded = 0; // a cell with more records than this is drawn as one upright box
    bool dense = false;      // about as many records as columns, or a few times as many
};

struct SeriesLayout {
    double left = 0;         // of column 0
    double column_width = 1; // points
    std::vector<Strand> strands;
    std::vector<std::size_t> step_backs; // the line from the record before to each of these leads back in time
};

// More strands than this are a log that cannot be followed line by line; then only their columns are filled.
inline constexpr std::size_t MOST_STRANDS = 20'000;

[[nodiscard]] SeriesLayout layout_series(const TrackingRecords& records, const TimeStretches& stretches,
                                         const TimeAxis& axis, Rect visible, double pixel);

// The records in sight, stretch by stretch.
[[nodiscard]] std::vector<RecordSpan> records_in_sight(const TrackingRecords& records, const TimeStretches& stretches,
                                                       const TimeAxis& axis, Rect visible);

} // namespace tickervantage
