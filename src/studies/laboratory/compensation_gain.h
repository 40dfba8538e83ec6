// What a temperature compensation has gained since it was installed, by chronyd's own logs.
//
// While it is on, the frequency in the tracking log is what the oscillator does together with the compensation that the
// tempcomp log notes; without the latter it is what the clock would have done on the same days. Pure functions, any
// thread; reading waits for the disk. Source: chrony.conf(5), log tracking and log tempcomp.
#pragma once

#include "base/failure.h"
#include "studies/laboratory/day_gain.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class FollowedFiles;

struct NotedValue {
    double time = 0;  // s since 1970
    double value = 0; // ppm
};

struct NotedCompensation {
    std::vector<NotedValue> frequencies;   // of the tracking log, positive: fast
    std::vector<NotedValue> compensations; // of the tempcomp log
};

// In a folder of logs; no record at all is no failure, but what cannot be read is.
[[nodiscard]] Result<NotedCompensation> read_noted_compensation(FollowedFiles& files, const std::string& folder);

struct CompensationGain {
    std::optional<double> former; // ppm: how the frequency went up and down within a day, in the week before
    std::optional<DayGain> day;   // the last 24 hours; before: without the compensation
    std::optional<DayGain> week;  // the last 7 days, day by day
    double hours = 0;             // that the compensation is known to have been on

    // The longest look that there is decides.
    [[nodiscard]] bool is_worse() const;
};

// `since` is when it was installed, s since 1970. A day needs 20 hours with records, a week six such days.
[[nodiscard]] CompensationGain gain_since(NotedCompensation noted, double since);

} // namespace tickervantage
