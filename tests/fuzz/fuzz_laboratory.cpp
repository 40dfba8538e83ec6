// Any bytes as a tracking log, and as a file with a number a line: whatever is read of them has a forecast and
// deviations that are numbers, with limits on both sides.
#include "fuzz/require.h"
#include "studies/laboratory/free_running_clock.h"
#include "studies/laboratory/holdover.h"
#include "studies/laboratory/stability.h"

#include <cmath>
#include <sstream>

using namespace tickervantage;

namespace {

void judge(const PhaseData& data) {
    StabilityQuestion all;
    all.measures.assign(stability_measures.begin(), stability_measures.end());
    const auto curves = stability_of(data, all);
    if (!curves)
        return;
    for (const StabilityCurve& curve : *curves)
        for (const StabilityPoint& point : curve.points) {
            require(point.n > 0 && point.tau > 0 && point.value >= 0);
            require(point.low.value_or(0) <= point.value && point.high.value_or(point.value) >= point.value);
        }
}

bool is_small(const PhaseData& data) {
    for (const auto& segment : data.segments)
        for (const double phase : segment)
            if (!(std::abs(phase) < 1e100)) // squares of larger ones are no numbers
                return false;
    return true;
}

} // namespace

FUZZED(bytes) {
    if (const auto numbers = phase_of_numbers(bytes, NumberKind::phase, 1, "f"); numbers && is_small(*numbers))
        judge(*numbers);
    FreeRunningClockReader reader;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);)
        reader.add_line(line);
    const FreeRunningClock clock = std::move(reader).finish();
    if (clock.interval <= 0)
        return;
    const HoldoverForecast forecast = forecast_holdover(clock, 0.95, 1e-3);
    for (const HoldoverError& error : forecast.horizons)
        require(!(error.low > error.error) && !(error.high < error.error));
    if (const PhaseData data = phase_of(clock); data.count < 10'000 && is_small(data))
        judge(data);
}
