// The last while of the clock's history, as the main window draws it.
#pragma once

#include "base/failure.h"
#include "history/records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct TrendReading {
    std::int64_t time = 0; // s since 1970, UTC
    Verdict verdict = Verdict::unavailable;
    std::optional<double> bound = {};  // s; none: nothing vouched for one
    std::optional<double> offset = {}; // s, the system time's; none: nothing was read, or there was no reference
    bool joins = false;                // follows the one before it without a gap
    friend bool operator==(const TrendReading&, const TrendReading&) = default;
};

struct Trend {
    std::int64_t from = 0; // the moments at both edges, whatever was read
    std::int64_t to = 0;
    std::vector<TrendReading> readings = {}; // oldest first
};

inline constexpr std::int64_t trend_seconds = 3600;

// How much is shown of it: an hour, or while less was read, the shortest of 2, 5, 10, 20 and 30 minutes that holds
// it all.
[[nodiscard]] std::int64_t shown_seconds(const std::vector<HistoryRow>& rows, std::int64_t to);

// Of rows by time. Where much more time than usual lies between two of them nobody looked.
[[nodiscard]] std::vector<TrendReading> trend_readings(const std::vector<HistoryRow>& rows);

// At most the hour before `to` out of the history's file, and the newest reading, which need not be in there yet. Where
// there is no file yet the history is empty. Waits for the disk; any thread.
[[nodiscard]] Result<Trend> read_trend(const std::string& file, std::int64_t to,
                                       const std::optional<HistoryRow>& newest = std::nullopt);

} // namespace tickervantage
