#include "studies/history/history_statistics.h"

#include "base/quantile.h"
#include "draw/plots/timed_values.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {

ValueStatistics statistics_of(std::vector<double> values) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    ValueStatistics found{values.size(), none, none, none, none, none, none, none, none};
    if (values.empty())
        return found;
    const auto count = static_cast<double>(values.size());
    double sum = 0;
    for (const double value : values)
        sum += value;
    found.mean = sum / count;
    double squares = 0;
    double deviations = 0; // from the mean: those of small numbers far from zero would drown in their squares
    for (const double value : values) {
        squares += value * value;
        deviations += (value - found.mean) * (value - found.mean);
    }
    found.rms = std::sqrt(squares / count);
    found.deviation = count > 1 ? std::sqrt(deviations / (count - 1)) : none;
    found.largest = *std::ranges::max_element(values, {}, [](double value) { return std::abs(value); });
    found.p5 = quantile(values, 0.05);
    found.p50 = quantile(values, 0.50);
    found.p95 = quantile(values, 0.95);
    found.p99 = quantile(values, 0.99);
    return found;
}

Histogram histogram_of(std::vector<double> values, std::size_t bins) {
    if (values.empty() || bins == 0)
        return {};
    Histogram found{quantile(values, 0.005), quantile(values, 0.995), std::vector<std::size_t>(bins)};
    const double room =
        found.high > found.low ? (found.high - found.low) * 0.02 : std::max(std::abs(found.low) * 0.01, 1e-12);
    found.low -= room;
    found.high += room;
    for (const double value : values) {
        const double place = (value - found.low) / (found.high - found.low) * static_cast<double>(bins);
        if (place < 0)
            ++found.below;
        else if (place >= static_cast<double>(bins))
            ++found.above;
        else
            ++found.counts[static_cast<std::size_t>(place)];
    }
    return found;
}

} // namespace tickervantage
