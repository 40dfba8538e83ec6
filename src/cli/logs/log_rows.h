// Records of logs and what their values are like, as text, JSON or comma-separated values. A record is a flat object;
// what is absent is null.
#pragma once

#include "base/value_summary.h"
#include "cli/json_text.h"

#include <array>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

enum class LogForm : unsigned char { text, json, csv };

// The names of the values, above them; nothing in JSON.
void print_heading(const Json& record, LogForm form, std::ostream& out);

// JSON: one line a record. CSV: absent values empty.
void print_record(const Json& record, LogForm form, std::ostream& out);

// Lowest, highest, mean, root mean square, median, and 95th and 99th percentile; NaN is absent.
[[nodiscard]] Json summary_json(std::span<const double> values);
inline constexpr std::array summary_shares{0.5, 0.95, 0.99};
[[nodiscard]] Json summary_json(const std::optional<ValueSummary>& summary); // with those percentiles

// `document` has count, first, last, and behind them a summary under the name of each series.
void print_summary(const Json& document, LogForm form, std::ostream& out);

} // namespace tickervantage
