// Where each source says the clock's offset lies, and what those that agree have in common. Seconds; positive: our
// clock is ahead. Pure functions, any thread.
#pragma once

#include "chrony/truth/judged_source.h"

#include <optional>
#include <vector>

namespace tickervantage {

struct SourceInterval {
    double low = 0;
    double high = 0;
};

// The one that chronyd selects by, where that may be read, else that of the last measurement and its error.
[[nodiscard]] std::optional<SourceInterval> interval_of(const JudgedSource& source);

// Whether chronyd takes the source's time for true, be it used or not.
[[nodiscard]] bool is_believed(SelectionRule rule);

// None where nobody is believed, or where measurements alone do not meet.
[[nodiscard]] std::optional<SourceInterval> shared_interval(const std::vector<JudgedSource>& sources);

} // namespace tickervantage
