// What `tickerctl spectrum` does: the spectrum of a tracking log, as text or as one JSON document.
// Waits for the disk.
#pragma once

#include "cli/configuration/settings_command.h"
#include "studies/spectrum/spectrum.h"

#include <iosfwd>
#include <string>

namespace tickervantage {

class FollowedFiles;

struct SpectrumChoice {
    std::string log;     // a path
    std::string series;  // as spectrum_series_name has it
    double interval = 0; // s
    double duration = 0; // s
};

[[nodiscard]] Result<ComputedSpectrum> spectrum_of_log(FollowedFiles& files, const SpectrumChoice& choice);

// The document's keys are the record's fields, and `extrapolated` and `before_records`, which count the samples that do
// not lie between records; what is not finite is null.
void print_spectrum(const ComputedSpectrum& spectrum, const SpectrumChoice& choice, OutputForm form, std::ostream& out);

} // namespace tickervantage
