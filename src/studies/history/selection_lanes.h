// The lanes of the sources from chrony's selection logs. Pure functions, any thread.
#pragma once

#include "chrony/log/log_line.h"
#include "history/records.h"

namespace tickervantage {

// A source's state, and the middle of its interval as its offset.
[[nodiscard]] SourceRow selection_row(const LogLine& line);

} // namespace tickervantage
