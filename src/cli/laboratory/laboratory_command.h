// What `tickerctl stability` and `tickerctl holdover` print.
#pragma once

#include "base/failure.h"
#include "studies/laboratory/holdover.h"
#include "studies/laboratory/stability.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// The texts of --measure and --tau.
[[nodiscard]] Result<std::vector<StabilityMeasure>> measures_in(std::string_view text);
[[nodiscard]] Result<> take_averaging_times(std::string_view text, StabilityQuestion& question);

// The document's keys are tau0, count, segments and measures; what is not known is null.
void print_stability(const PhaseData& data, const std::vector<StabilityCurve>& curves, bool as_json, std::ostream& out);

// The document's keys are the forecast's fields.
void print_holdover(const HoldoverForecast& forecast, bool as_json, std::ostream& out);

} // namespace tickervantage
