// What `tickerctl plot` draws of logs and points: charts as picture files, with their captions if they are wanted.
//
// Needs a QGuiApplication. Main thread; waits for the disk.
#pragma once

#include "base/failure.h"
#include "cli/logs/plot_options.h"
#include "draw/plots/plot_caption.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/spectrum/spectrum.h"

#include <string>

namespace tickervantage {

[[nodiscard]] Result<> plot_chart(const PlotOptions& options, const PlotCaption& caption, const DrawPlot& draw);

// The plot of the frequency-temperature window.
[[nodiscard]] Result<> plot_freqtemp(const FreqTempView& view, const PlotOptions& options);

// The chart of the spectrum window.
[[nodiscard]] Result<> plot_spectrum(ComputedSpectrum spectrum, const PlotOptions& options);

} // namespace tickervantage
