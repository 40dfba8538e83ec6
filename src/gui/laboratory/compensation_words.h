// What the page on compensation says. Pure functions, main thread (translations).
#pragma once

#include "studies/laboratory/compensation_state.h"

#include <QStringList>

#include <vector>

namespace tickervantage {

// One sentence, or two: what to do, and why.
[[nodiscard]] QString compensation_headline(const CompensationState& state);

// What it is, its value, and what the value means.
[[nodiscard]] std::vector<QStringList> compensation_figures(const CompensationState& state);

} // namespace tickervantage
