// Scales of the value axis that suit the values at hand. Values in seconds, heights in points. Pure functions.
#pragma once

#include <optional>
#include <vector>

namespace tickervantage {

// For PerformanceGraph's two vertical settings, within the limits of what is kept of them.
struct ValueFit {
    double vertical_scale = 0; // a whole number, so that the axis's numbers are true
    double vertical_zoom = 0;
};

// The values fill a frame of that height, both sides of the zero line. On the logarithmic axis nearly all of them stand
// off the zero line, over five decades at most; on the linear one the numbers beside the axis say what their place is,
// unless the values are of a few nanoseconds, which have none. None: no value is a number other than zero.
[[nodiscard]] std::optional<ValueFit> fit_values(std::vector<double> values, bool use_logscale, double height);

} // namespace tickervantage
