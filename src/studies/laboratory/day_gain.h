// By how much a clock's frequency is steadier one way than another, judged by days: neighbouring readings know each
// other, days hardly do. A pure function, any thread.
#pragma once

#include <vector>

namespace tickervantage {

// Of the frequency within one day about its mean of that day.
struct DayVariances {
    double before = 0; // ppm²
    double after = 0;
};

struct DayGain {
    double before = 0; // ppm, deviations, in the geometric mean of the days
    double after = 0;
    double gain = 0; // before / after
    double low = 0;  // the 95 % interval of the gain: the logarithms of the days' gains have Student's distribution
    double high = 0; // 0: one day has none
};

// Of one day or more.
[[nodiscard]] DayGain day_gain(const std::vector<DayVariances>& days);

} // namespace tickervantage
