// What the values in sight are like, in numbers, and as a histogram. Plain values, any thread.
#pragma once

#include "base/value_summary.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace tickervantage {

// The percentiles that a summary of values in sight holds.
inline constexpr std::array history_shares{0.05, 0.5, 0.95, 0.99};

// The value furthest from zero, with its sign.
[[nodiscard]] inline double furthest_of(const ValueSummary& summary) {
    return std::abs(summary.least) > std::abs(summary.largest) ? summary.least : summary.largest;
}

struct Histogram {
    double low = 0;
    double high = 0;
    std::vector<std::size_t> counts; // of as many bins of the same width; empty: no values
    std::size_t below = 0;           // left out at either end: rare values would leave the rest no room
    std::size_t above = 0;
};

[[nodiscard]] Histogram histogram_of(std::vector<double> values, std::size_t bins);

} // namespace tickervantage
