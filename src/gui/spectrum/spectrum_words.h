// What the spectrum window says about failures, bars and its pictures, in the user's language. Main thread.
#pragma once

#include "draw/plots/plot_caption.h"
#include "studies/spectrum/spectrum.h"
#include "studies/spectrum/spectrum_view.h"

#include <QString>

namespace tickervantage {

// One sentence. `series`: as the selector names it.
[[nodiscard]] QString words_of(const SpectrumFailure& failure, const QString& series);

[[nodiscard]] QString words_of(const SpectrumReading& reading);

// How many samples are not between records; empty when all are but the newest, which never is.
[[nodiscard]] QString doubt_words(const ComputedSpectrum& spectrum);

// For a picture of the chart. `series`: as the selector names it.
[[nodiscard]] PlotCaption caption_of(const ComputedSpectrum& spectrum, const QString& series);

} // namespace tickervantage
