// How much of the time the clock's largest possible error was within a limit. Pure functions, any thread.
#pragma once

#include <cstddef>
#include <span>

namespace tickervantage {

// s: a pause longer than chronyd makes tells nothing.
inline constexpr double longest_pause = 4096;

// Seconds. The time from one record to the next counts as the later one says, as evidence has it; a longer
// pause is without either.
struct LimitShare {
    double within = 0;
    double outside = 0;
    double without = 0;
    double longest = 0; // time outside without a break
    std::size_t excursions = 0;
};

[[nodiscard]] LimitShare share_within(std::span<const double> times, std::span<const double> bounds, double limit);

} // namespace tickervantage
