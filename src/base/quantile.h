// Quantiles of a list of numbers. Pure functions.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace tickervantage {

// The value below which a `share` of them lies, between two of them on the straight line between; the values change
// their order. NaN of none.
[[nodiscard]] inline double quantile(std::vector<double>& values, double share) {
    if (values.empty())
        return std::numeric_limits<double>::quiet_NaN();
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), below, values.end());
    const double rest = place - std::floor(place);
    if (rest == 0)
        return *below;
    return *below + rest * (*std::min_element(below + 1, values.end()) - *below);
}

} // namespace tickervantage
