// Which of several sensors a clock gains most by, from the points of the frequency-temperature window. Pure functions,
// any thread; a study of a million points takes a second.
#pragma once

#include "chrony/configuration/installed_compensation.h"
#include "studies/freqtemp/scatter_map.h"
#include "studies/laboratory/compensation.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// By sensor, with the times at which they were read.
using TimedSamples = std::map<std::string, std::vector<TemperatureSample>>;

// Points without a time are left out, and so are sensors without any other.
[[nodiscard]] TimedSamples samples_in_map(const ScatterMap& map);

struct CompensationChoice {
    std::string sensor;
    CompensationStudy study;
    // As the study took them: what an installed compensation did is taken off.
    std::vector<TemperatureSample> samples;
};

// The surest gain; where nothing is sure to be gained, the study that got furthest. What the clock did under a
// compensation by another sensor is left out. None without samples.
[[nodiscard]] std::optional<CompensationChoice>
choose_compensation(TimedSamples samples, const std::optional<InstalledCompensation>& installed);

// How many points a sensor has to be allowed, rounded up, where it is allowed `most` and they do not reach back as far
// as a compensation needs: it never would have them, however long one waits. Else 0.
[[nodiscard]] std::size_t points_needed(const CompensationChoice& choice, std::size_t most);

// By how much a clock that is left to itself goes wrong in that time, with a frequency that is off by its deviation.
[[nodiscard]] inline double error_after(double seconds, double deviation) {
    return seconds * deviation * 1e-6; // s, of ppm
}

} // namespace tickervantage
