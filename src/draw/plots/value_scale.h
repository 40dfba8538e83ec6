// How the value axis turns values into points and numbers on the axis into text.
//
// Values in seconds (or seconds per second), offsets in points from the zero line, positive upwards. Plain functions.
#pragma once

#include <cstdint>
#include <string>

namespace tickervantage {

// No offset is larger, so that a frame around all of them still has room for a pixel in a double's digits.
inline constexpr double LARGEST_OFFSET = 1e12;

struct ValueScale {
    bool use_logscale = true;
    double yscale = 1e6;        // plotted units a second: 1e6 plots microseconds
    double linear_scale = 1.0;  // points a plotted unit
    double decade_scale = 50.0; // points a decade

    // Grows with the value, and is finite for every number; a value that is not a number stays one. On the logarithmic
    // axis values below one plotted unit rest on the zero line, because their logarithm would lead past it.
    [[nodiscard]] double offset(double value) const;
};

// Truncated, and held within the type's limits; 0 for what is not a number.
[[nodiscard]] std::int64_t to_integer(double value);

// The text on the value axis for n plotted units of 1 / yscale seconds: "20 µs". A negative number is in nanoseconds,
// whatever its size, and the number 1, where the logarithmic axis begins, is "0".
[[nodiscard]] std::string formatValue(std::int64_t n, double yscale);

// The value in seconds that this text tells: not always n units, since units are cut to whole numbers.
[[nodiscard]] double labelled_value(std::int64_t n, double yscale);

} // namespace tickervantage
