// What many numbers are like: range, means and percentiles. Pure functions, any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tickervantage {

struct ValueSummary {
    std::size_t count = 0;
    double least = 0;
    double largest = 0;
    double mean = 0;
    double rms = 0;
    std::vector<double> percentiles = {}; // as they were asked for
};

// Of those that are there: NaN is absent. At most 100 shares, from 0 to 1; a percentile between two values lies on the
// straight line between them. A million numbers take some milliseconds: they are not sorted. None where none is there.
[[nodiscard]] std::optional<ValueSummary> summary_of(std::span<const double> values, std::span<const double> shares);

} // namespace tickervantage
