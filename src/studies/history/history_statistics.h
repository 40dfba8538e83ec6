// What the values in sight are like, in numbers, and as a histogram. Plain values, any thread.
#pragma once

#include <cstddef>
#include <vector>

namespace tickervantage {

// In the values' unit; NaN where there are none. The deviation is that of a sample, NaN of fewer than two.
struct ValueStatistics {
    std::size_t count = 0;
    double mean = 0;
    double deviation = 0;
    double rms = 0;
    double p5 = 0;
    double p50 = 0;
    double p95 = 0;
    double p99 = 0;
    double largest = 0; // the one furthest from zero, with its sign
};

[[nodiscard]] ValueStatistics statistics_of(std::vector<double> values);

struct Histogram {
    double low = 0;
    double high = 0;
    std::vector<std::size_t> counts; // of as many bins of the same width; empty: no values
    std::size_t below = 0;           // left out at either end: rare values would leave the rest no room
    std::size_t above = 0;
};

[[nodiscard]] Histogram histogram_of(std::vector<double> values, std::size_t bins);

} // namespace tickervantage
