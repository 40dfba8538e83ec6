// What `tickerctl status` says: one reading of the clock, as text or as one JSON document.
//
// The document's keys are names that others rely on: the verdict with its bound and its reference, the fields of the
// tracking report, "state", and "meter" with what the meter would show: its value in nanoseconds (or nanoseconds per
// second), its scale, its needle and its text. What is not known is null, and "–" in the text.
#pragma once

#include "chrony/status/status_values.h"
#include "cli/json_text.h"
#include "cli/status/clock_reading.h"

#include <iosfwd>
#include <optional>
#include <string_view>

namespace tickervantage {

// The view of that name; none when there is no such view.
[[nodiscard]] std::optional<meterView> meter_view_named(std::string_view name);

// 0: the clock follows sources; 1: it does not.
int print_status(const ClockTruth& truth, meterView view, DocumentForm form, std::ostream& out);

} // namespace tickervantage
