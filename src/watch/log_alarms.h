// How often each rule would have been raised in a tracking log: what a threshold costs, before it is chosen. A tracking
// log knows updates, offsets and chronyd's own bound, and nothing of the other quantities. Source: chrony.conf(5),
// log tracking. Pure functions, any thread.
#pragma once

#include "watch/rules.h"

#include <array>
#include <optional>
#include <string_view>

namespace tickervantage {

struct LogAlarms {
    double seconds = 0; // from the first record to the last
    std::array<std::optional<int>, watch_quantities.size()> raised;

    [[nodiscard]] std::optional<int> operator[](WatchQuantity quantity) const {
        return raised.at(static_cast<std::size_t>(quantity));
    }
};

// Of the text of a log; lines that are no records are passed over. None where it has fewer than two records.
[[nodiscard]] std::optional<LogAlarms> alarms_in_log(std::string_view text, const std::vector<WatchRule>& rules);

} // namespace tickervantage
