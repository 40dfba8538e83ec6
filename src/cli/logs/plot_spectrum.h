// What `tickerctl plot spectrum` does: the chart of the spectrum window as a picture file.
//
// Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "studies/spectrum/spectrum.h"

#include <string>

namespace tickervantage {

[[nodiscard]] Result<> plot_spectrum(ComputedSpectrum spectrum, const PlotOptions& options);

} // namespace tickervantage
