#include "draw/plots/value_scale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {

namespace {

struct AxisNumber {
    std::int64_t count = 0;
    std::int64_t nanoseconds_each = 1;
    const char* unit = " ns";
};

AxisNumber axis_number(std::int64_t n, double yscale) {
    const std::int64_t nanoseconds = to_integer(static_cast<double>(n) * 1e9 / yscale);
    if (nanoseconds < 1000)
        return {nanoseconds};
    if (nanoseconds <= 999'999)
        return {nanoseconds / 1000, 1000, " \u00b5s"};
    if (nanoseconds > 999'999'999)
        return {nanoseconds / 1'000'000'000, 1'000'000'000, " s"};
    return {nanoseconds / 1'000'000, 1'000'000, " ms"};
}

} // namespace

double ValueScale::offset(double value) const {
    if (std::isnan(value))
        return value;
    const double units = std::min(std::abs(value) * yscale, std::numeric_limits<double>::max());
    double height = units * linear_scale;
    if (use_logscale)
        height = units < 1 ? 0 : std::log10(units) * decade_scale;
    return std::copysign(height > LARGEST_OFFSET ? LARGEST_OFFSET : height, value);
}

std::int64_t to_integer(double value) {
    constexpr auto LIMIT = static_cast<double>(std::numeric_limits<std::int64_t>::max()); // 2^63
    if (std::isnan(value))
        return 0;
    if (value >= LIMIT)
        return std::numeric_limits<std::int64_t>::max();
    return value <= -LIMIT ? std::numeric_limits<std::int64_t>::min() : static_cast<std::int64_t>(value);
}

std::string formatValue(std::int64_t n, double yscale) {
    if (n == 1)
        return "0";
    const AxisNumber number = axis_number(n, yscale);
    return std::to_string(number.count) + number.unit;
}

double labelled_value(std::int64_t n, double yscale) {
    if (n == 1)
        return 0;
    const AxisNumber number = axis_number(n, yscale);
    return static_cast<double>(number.count) * static_cast<double>(number.nanoseconds_each) * 1e-9;
}

} // namespace tickervantage
