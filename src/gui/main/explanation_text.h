// Explanations of sources as the text of a window. Main thread.
#pragma once

#include "chrony/truth/clock_truth.h"

#include <QString>

namespace tickervantage {

// As HTML; names and lines of others are text in it.
[[nodiscard]] QString explanation_text(const Explanation& explanation);

// What the clock's verdict rests on, then every source.
[[nodiscard]] QString whole_explanation(const ClockTruth& truth);

} // namespace tickervantage
