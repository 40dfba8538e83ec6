// Phase in equal steps, which the measures of stability are taken of: from a tracking log, or from a file with one
// number a line. One thread.
#pragma once

#include "base/failure.h"
#include "studies/laboratory/deviations.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct FreeRunningClock;

struct PhaseData {
    double tau0 = 0; // s
    PhaseSegments segments;
    std::size_t count = 0;           // values read: of phase, or of frequency
    std::optional<double> offset_sd; // s: how much the measurement itself shakes, where that is known
};

// In steps of the median interval, on straight lines between the records.
[[nodiscard]] PhaseData phase_of(const FreeRunningClock& clock);

enum class NumberKind : unsigned char { phase, frequency }; // s, or s/s

// Blank lines and those that begin with # are passed over. A failure names the line that is no number by `name`.
[[nodiscard]] Result<PhaseData> phase_of_numbers(std::string_view text, NumberKind kind, double tau0,
                                                 const std::string& name);

} // namespace tickervantage
