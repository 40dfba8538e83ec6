// What kind of noise rules a clock at an averaging time: told by the lag-1 autocorrelation of its phase, differenced
// until it is stationary. Pure functions. Source: W. J. Riley and C. A. Greenhall, "Power law noise identification
// using the lag 1 autocorrelation", 2004.
#pragma once

#include "studies/laboratory/deviations.h"

#include <optional>
#include <string_view>

namespace tickervantage {

// By the power of the frequency f that the spectrum of the clock's frequency error goes with.
enum class NoiseType : signed char {
    random_walk_fm = -2,
    flicker_fm,
    white_fm,
    flicker_pm,
    white_pm,
};

[[nodiscard]] std::string_view name_of(NoiseType noise);

// None where fewer than 30 values are left at that averaging time, or nothing shakes.
[[nodiscard]] std::optional<NoiseType> noise_type(const PhaseSegments& segments, std::size_t factor);

} // namespace tickervantage
