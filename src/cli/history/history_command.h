// What `tickerctl history` says: how the clock was, and what happened to it. Keys are names that others rely on; what
// is not known is null, and empty in comma-separated values.
#pragma once

#include "cli/json_text.h"
#include "history/history_reader.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace tickervantage {

enum class HistoryForm : unsigned char { text, json, csv };

struct HistoryQuestion {
    HistoryPeriod period;
    std::optional<std::string> source; // address or reference ID; none: the clock itself
    HistoryForm form = HistoryForm::text;
};

// 0, or 1 where nothing is kept of that time. Fails when the file cannot be read.
[[nodiscard]] Result<int> print_history(HistoryReader& history, const HistoryQuestion& question, std::ostream& out);

} // namespace tickervantage
