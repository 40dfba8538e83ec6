#include "draw/plots/value_scale.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace tickervantage {

namespace {

constexpr double LOG10_OF_2 = 0.301029995663981195214;

// log10 of a number from 1 to the largest double, to the last digit or two. The library's own, called between other
// drawing code tens of thousands of times a frame, was measured at 140 ns a call where this takes 10: it changes the
// processor's vector state back and forth.
double decades(double number) {
    constexpr double TWO_BY_LN_10 = 0.868588963806503655302;
    constexpr std::uint64_t FRACTION = (std::uint64_t{1} << 52U) - 1;
    constexpr std::uint64_t ONE = std::uint64_t{1023} << 52U;
    const auto bits = std::bit_cast<std::uint64_t>(number);
    auto exponent = static_cast<double>(static_cast<std::int64_t>(bits >> 52U) - 1023);
    double mantissa = std::bit_cast<double>((bits & FRACTION) | ONE);
    if (mantissa > 1.4142135623730951) { // towards 1, where the series is short
        mantissa /= 2;
        exponent += 1;
    }
    // ln(m) = 2 (s + s^3/3 + s^5/5 + ...) with s = (m - 1) / (m + 1), here at most 0.172
    const double s = (mantissa - 1) / (mantissa + 1);
    const double square = s * s;
    double sum = 1.0 / 17;
    for (const double coefficient : {1.0 / 15, 1.0 / 13, 1.0 / 11, 1.0 / 9, 1.0 / 7, 1.0 / 5, 1.0 / 3, 1.0})
        sum = sum * square + coefficient;
    return exponent * LOG10_OF_2 + s * sum * TWO_BY_LN_10;
}

constexpr std::size_t CHUNK = 64;

// The offsets of so many values, in single precision: a hundredth of a point at worst, and in a form that compilers
// turn into vector instructions. False, and nothing done, when one is too large for it.
bool quick_offsets(double* values, double yscale, double decade_scale) {
    constexpr std::int32_t TOO_LARGE = 0x7149F2CA; // the bits of 1e30
    constexpr std::int32_t INFINITE = 0x7F800000;  // above it stand those of what is absent
    constexpr std::int32_t HALF_ROOT = 0x3F3504F3; // of 0.707
    constexpr std::uint64_t SIGN = std::uint64_t{1} << 63U;
    std::array<std::int32_t, CHUNK> units{};
    std::array<float, CHUNK> heights{};
    for (std::size_t i = 0; i < CHUNK; ++i)
        units[i] = std::bit_cast<std::int32_t>(static_cast<float>(std::abs(values[i]) * yscale));
    std::int32_t wrong = 0;
    for (const std::int32_t one : units)
        wrong |= static_cast<std::int32_t>(one >= TOO_LARGE) & static_cast<std::int32_t>(one <= INFINITE);
    if (wrong != 0)
        return false;
    const auto doubling = static_cast<float>(decade_scale * LOG10_OF_2);
    for (std::size_t i = 0; i < CHUNK; ++i) {
        const std::int32_t exponent = (units[i] - HALF_ROOT) >> 23;
        const auto mantissa = std::bit_cast<float>(units[i] - exponent * (1 << 23)); // from 0.707 to 1.414
        const float s = (mantissa - 1) / (mantissa + 1);
        const float square = s * s;
        const float sum = ((square * (1.0F / 7) + 1.0F / 5) * square + 1.0F / 3) * square + 1;
        const float doublings = static_cast<float>(exponent) + s * sum * 2.88539008F; // 2 / ln 2
        heights[i] = doublings > 0 ? doublings * doubling : 0;
    }
    for (std::size_t i = 0; i < CHUNK; ++i) {
        const auto height = std::bit_cast<std::uint64_t>(static_cast<double>(heights[i]));
        const std::uint64_t sign = std::bit_cast<std::uint64_t>(values[i]) & SIGN;
        values[i] = std::bit_cast<double>(height | sign) + values[i] * 0; // absent stays absent
    }
    return true;
}

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
        height = units < 1 ? 0 : decades(units) * decade_scale;
    return std::copysign(height > LARGEST_OFFSET ? LARGEST_OFFSET : height, value);
}

void ValueScale::to_offsets(std::span<double> values) const {
    while (!values.empty()) {
        const auto some = values.first(std::min(CHUNK, values.size()));
        values = values.subspan(some.size());
        if (!use_logscale || some.size() < CHUNK || !quick_offsets(some.data(), yscale, decade_scale))
            for (double& value : some)
                value = offset(value);
    }
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
