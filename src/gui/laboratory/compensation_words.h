// What the page on compensation says. Pure functions, main thread (translations).
#pragma once

#include "studies/laboratory/compensation_state.h"

#include <QStringList>

#include <cstddef>
#include <vector>

namespace tickervantage {

// One sentence, or two: what to do, and why.
[[nodiscard]] QString compensation_headline(const CompensationState& state);

// Why waiting does not help where only so many points are kept, and the text of the button that mends it.
[[nodiscard]] QString few_points_words(std::size_t most, std::size_t needed);
[[nodiscard]] QString keep_points_words(std::size_t needed);

// What it is, its value, and what the value means.
[[nodiscard]] std::vector<QStringList> compensation_figures(const CompensationState& state);

} // namespace tickervantage
