// What `tickerctl plot freqtemp` does: the plot of the frequency-temperature window as a picture file.
//
// 0; or -1 with one sentence. Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "cli/plot_options.h"
#include "studies/freqtemp/freqtemp_view.h"

#include <string>

namespace tickervantage {

[[nodiscard]] int plot_freqtemp(const FreqTempView& view, const PlotOptions& options, std::string& sentence);

} // namespace tickervantage
