// What the spectrum window says about failures and bars, in the user's language. Main thread.
#pragma once

#include "spectrum/spectrum.h"
#include "spectrum/spectrum_view.h"

#include <QString>

namespace tickervantage {

// One sentence. `series`: as the selector names it.
[[nodiscard]] QString words_of(const SpectrumFailure& failure, const QString& series);

[[nodiscard]] QString words_of(const SpectrumReading& reading);

} // namespace tickervantage
