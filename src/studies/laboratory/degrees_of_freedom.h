// How many independent looks at the noise a deviation is worth, and the limits that follow from it. Pure functions.
// Source: C. A. Greenhall and W. J. Riley, "Uncertainty of stability variances based on finite differences", 2003.
#pragma once

#include "studies/laboratory/deviations.h"
#include "studies/laboratory/noise_type.h"

#include <cstddef>
#include <optional>

namespace tickervantage {

// Of the variance of `count` values of phase over `factor` steps. 0: too few values, and of mtie, which is no variance.
[[nodiscard]] double degrees_of_freedom(StabilityMeasure measure, NoiseType noise, std::size_t factor,
                                        std::size_t count);

struct DeviationLimits {
    double low = 0;
    double high = 0;
};

// Between them the true deviation lies with a probability of `confidence`, by the chi-squared distribution. None with
// no degree of freedom.
[[nodiscard]] std::optional<DeviationLimits> limits_of(double deviation, double degrees, double confidence);

} // namespace tickervantage
