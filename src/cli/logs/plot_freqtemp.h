// What `tickerctl plot freqtemp` does: the plot of the frequency-temperature window as a picture file.
//
// Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <string>

namespace tickervantage {

[[nodiscard]] Result<> plot_freqtemp(const FreqTempView& view, const PlotOptions& options);

} // namespace tickervantage
