// What a free-running clock's record says as values over time, for a periodogram. Pure functions.
#pragma once

#include "studies/laboratory/periodogram.h"

namespace tickervantage {

struct FreeRunningClock;

enum class ClockQuantity : unsigned char {
    frequency, // s/s: the oscillator's own between two records, at the middle of both; none across a gap
    offset,    // s: how far off chronyd found its clock
};

// Records whose time is not after all before them are left out.
[[nodiscard]] UnevenSeries series_of(const FreeRunningClock& clock, ClockQuantity quantity);

} // namespace tickervantage
