// How far the clock would be off if its sources were lost now, judged by what it did in the past. Pure functions, any
// thread: seconds of work for a million records.
//
// From each moment t of the log on the clock is left alone with the frequency that chronyd held then; how far it would
// have been off after a time h is |phase(t + h) − phase(t) − frequency(t) × h|. The forecast is a quantile of these, so
// it assumes that the next hours are like the past ones.
#pragma once

#include "base/failure.h"
#include "studies/laboratory/free_running_clock.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace tickervantage {

inline constexpr std::array<double, 5> holdover_horizons{300, 3600, 21600, 86400, 172800}; // s
inline constexpr double history_for_horizon = 10; // a horizon needs so many times its length of history

struct HoldoverError {
    double seconds = 0; // after the loss
    double error = 0;   // s: the quantile
    double low = 0;     // between these the quantile itself lies with 95 %, by a block bootstrap
    double high = 0;
    double chronyd = 0; // s: the bound that chronyd would give then
};

struct HoldoverForecast {
    double quantile = 0;
    std::vector<HoldoverError> horizons; // those that the history is long enough for
    std::optional<double> limit;         // s
    std::optional<double> limit_after;   // s after the loss; none: not within the longest horizon, or no limit
};

// When the limit is passed at the earliest and at the latest, by the limits of the quantile themselves, s after the
// loss. None: not within the longest horizon.
struct LimitInterval {
    std::optional<double> earliest;
    std::optional<double> latest;
};
[[nodiscard]] LimitInterval limit_interval(const HoldoverForecast& forecast);

// `share` of the past lay within what is forecast. The same log gives the same forecast.
[[nodiscard]] HoldoverForecast forecast_holdover(const FreeRunningClock& clock, double share,
                                                 std::optional<double> limit = std::nullopt);

} // namespace tickervantage
