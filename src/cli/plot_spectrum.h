// What `tickerctl plot spectrum` does: the chart of the spectrum window as a picture file.
//
// 0; or -1 with one sentence. Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "cli/plot_options.h"
#include "studies/spectrum/spectrum.h"

#include <string>

namespace tickervantage {

[[nodiscard]] int plot_spectrum(ComputedSpectrum spectrum, const PlotOptions& options, std::string& sentence);

} // namespace tickervantage
