// Quantiles of a list of numbers. Pure functions.
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

namespace tickervantage {

// The value that a `share` of all are not above; between two values on the straight line between them. Leaves the list
// in another order. None of an empty list.
[[nodiscard]] inline std::optional<double> quantile(std::vector<double>& values, double share) {
    if (values.empty())
        return std::nullopt;
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = values.begin() + static_cast<std::ptrdiff_t>(place);
    std::nth_element(values.begin(), below, values.end());
    const double rest = place - static_cast<double>(std::distance(values.begin(), below));
    if (std::next(below) == values.end() || rest <= 0)
        return *below;
    return *below + (*std::min_element(std::next(below), values.end()) - *below) * rest;
}

} // namespace tickervantage
