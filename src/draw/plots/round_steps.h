// The steps between the labels of an axis: 1, 2 or 5 times a power of ten. Pure functions.
#pragma once

#include <cmath>

namespace tickervantage {

// The smallest such step that is not below the length, which is positive and finite.
[[nodiscard]] inline double round_step(double length) {
    const double decade = std::pow(10, std::floor(std::log10(length)));
    for (const double times : {1.0, 2.0, 5.0})
        if (times * decade >= length * (1 - 1e-9))
            return times * decade;
    return 10 * decade;
}

} // namespace tickervantage
