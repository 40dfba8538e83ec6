// How steady a clock is over which time, with limits, the kind of noise, and what the numbers are good for. Pure
// functions, any thread: seconds of work for a million values.
#pragma once

#include "base/failure.h"
#include "base/sentence.h"
#include "studies/laboratory/degrees_of_freedom.h"
#include "studies/laboratory/deviations.h"
#include "studies/laboratory/noise_type.h"
#include "studies/laboratory/phase_data.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tickervantage {

struct StabilityPoint {
    double tau = 0;    // s
    std::size_t n = 0; // differences
    double value = 0;  // s/s; of tdev and mtie s
    std::optional<double> low;
    std::optional<double> high;
    std::optional<NoiseType> noise;
    bool is_hollow = false; // the measurement's noise rather than the clock
};

struct StabilityCurve {
    StabilityMeasure measure = StabilityMeasure::oadev;
    std::vector<StabilityPoint> points;
};

// The averaging times: every 1, 2, 4, …; every 1, 10, 100, …; all; or those given, in seconds.
enum class TauSpacing : unsigned char { octave, decade, all, listed };

struct StabilityQuestion {
    std::vector<StabilityMeasure> measures{StabilityMeasure::oadev};
    TauSpacing spacing = TauSpacing::octave;
    std::vector<double> taus; // with `listed`: each counts as the nearest multiple of tau0
    double confidence = 0.683;
};

// Fails where the question asks for more work than makes sense, or a time that is shorter than tau0.
[[nodiscard]] Result<std::vector<StabilityCurve>> stability_of(const PhaseData& data,
                                                               const StabilityQuestion& question);

// Below it a deviation over `tau` seconds is what the network shakes. None where that is not known.
[[nodiscard]] std::optional<double> measurement_floor(const PhaseData& data, double tau);

// The averaging time from which the clock wanders more than the network shakes, s: where the overlapping deviation
// leaves the floor for good. None: it does not within this log, or the floor is not known.
[[nodiscard]] std::optional<double> best_poll_interval(const PhaseData& data);

// What follows from such an interval for chronyd's minpoll and maxpoll.
[[nodiscard]] Sentence poll_advice(double best_interval, int minpoll, int maxpoll);
// The same of the data; none where nothing follows.
[[nodiscard]] std::optional<Sentence> poll_advice(const PhaseData& data, int minpoll, int maxpoll);

} // namespace tickervantage
