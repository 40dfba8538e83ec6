// What `tickerctl plot meter` and `tickerctl plot clock` do: the instruments as picture files.
//
// Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"

#include <string>

namespace tickervantage {

[[nodiscard]] Result<> plot_meter(double value, bool per_second, const PlotOptions& options);
[[nodiscard]] Result<> plot_clock(ClockTime time, const PlotOptions& options);

} // namespace tickervantage
