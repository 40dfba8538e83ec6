// What one reading of chrony's reports adds to the history, and what has changed since the one before.
#pragma once

#include "base/failure.h"
#include "history/records.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tickervantage {

// Of reports that were read at `time`. Without "tracking" the verdict is "unavailable" and every quantity absent.
[[nodiscard]] HistoryReading history_reading(std::int64_t time, const ChronyReports& reports,
                                             const std::optional<ErrorBudget>& budget);

// Whether chronyd came or went, what became of the verdict, and which reference is followed instead. Of the very first
// reading nothing is told.
[[nodiscard]] std::vector<HistoryEvent> events_between(const std::optional<HistoryRow>& before, const HistoryRow& now);

// That a job of this program, by its name on the command line, came to its end at `time`: "done", or why not.
[[nodiscard]] HistoryEvent job_event(std::int64_t time, std::string_view job, const Result<>& outcome);

} // namespace tickervantage
