// What `tickerctl plot meter` and `tickerctl plot clock` do: the instruments as picture files.
//
// 0; or -1 with one sentence. Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "cli/plot_options.h"

#include <string>

namespace tickervantage {

[[nodiscard]] int plot_meter(double value, bool per_second, const PlotOptions& options, std::string& sentence);
[[nodiscard]] int plot_clock(ClockTime time, const PlotOptions& options, std::string& sentence);

} // namespace tickervantage
