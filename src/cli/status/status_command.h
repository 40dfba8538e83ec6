// What `tickerctl status` says: one reading of the daemon, as text or as one JSON document.
//
// The document's keys are the fields of the tracking report, "state", and "meter" with what the meter would show: its
// value in nanoseconds (or nanoseconds per second), its scale, its needle and its text.
#pragma once

#include "chrony/status/status_values.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

enum class StatusForm : unsigned char { text, json, json_line };

// The view of that name; none when there is no such view.
[[nodiscard]] std::optional<meterView> meter_view_named(std::string_view name);

// Writes what the "tracking" report means. 0: synchronised; 1: not.
int print_status(const std::string& tracking_output, meterView view, StatusForm form, std::ostream& out);

} // namespace tickervantage
