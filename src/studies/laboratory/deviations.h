// Measures of a clock's stability over an averaging time: Allan's deviation and its relatives, and the largest time
// interval error. Pure functions, any thread. Source: NIST Special Publication 1065, chapter 5.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class StabilityMeasure : unsigned char {
    adev,  // Allan, without overlap
    oadev, // Allan, overlapping
    mdev,  // modified Allan
    tdev,  // time deviation, s
    hdev,  // Hadamard, overlapping: blind for a constant drift of the frequency
    mtie,  // largest peak-to-peak phase within the averaging time, s
};
inline constexpr std::array stability_measures{StabilityMeasure::adev, StabilityMeasure::oadev, StabilityMeasure::mdev,
                                               StabilityMeasure::tdev, StabilityMeasure::hdev,  StabilityMeasure::mtie};

[[nodiscard]] std::string_view name_of(StabilityMeasure measure);
[[nodiscard]] std::optional<StabilityMeasure> stability_measure_named(std::string_view name);

// Phase, s, with equal steps within each segment; nothing is known between two of them.
using PhaseSegments = std::vector<std::vector<double>>;

struct Deviation {
    double value = 0;  // s/s; of tdev and mtie s
    std::size_t n = 0; // differences that went into it
};

// Over `factor` steps of `tau0` seconds. None where no segment is long enough.
[[nodiscard]] std::optional<Deviation> deviation(StabilityMeasure measure, const PhaseSegments& segments, double tau0,
                                                 std::size_t factor);

} // namespace tickervantage
