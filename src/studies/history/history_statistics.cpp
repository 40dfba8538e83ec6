#include "studies/history/history_statistics.h"

#include "base/quantile.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {

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
