// What one reading of chrony's reports adds to the history, and what has changed since the one before.
#pragma once

#include "history/records.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tickervantage {

// Of reports that were read at `time`. Without "tracking" the verdict is "unavailable" and every quantity absent.
[[nodiscard]] HistoryReading history_reading(std::int64_t time, const ChronyReports& reports,
                                             const std::optional<ErrorBudget>& budget);

// Whether chronyd came or went, what became of the verdict, and which reference is followed instead. Of the very first
// reading nothing is told.
[[nodiscard]] std::vector<HistoryEvent> events_between(const std::optional<HistoryRow>& before, const HistoryRow& now);

} // namespace tickervantage
