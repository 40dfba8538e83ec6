// Numbers of a log: read exactly, and kept in four bytes.
//
// chrony writes few digits, so that a number is a whole number times a power of ten: up to seven digits and the power
// fit into four bytes, and give back the very double that the text gives. What does not fit goes into a list beside,
// and its four bytes say where. Pure functions, any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace tickervantage {

struct LogNumber {
    static constexpr std::int32_t no_power = 127;
    static constexpr std::int32_t largest_digits = (1 << 23) - 1;

    double value = std::numeric_limits<double>::quiet_NaN(); // NaN: absent
    std::int32_t digits = 0;                                 // value = digits × 10^power, unless there is no power
    std::int32_t power = no_power;
};

inline constexpr int largest_power = 22; // of ten, that a double holds exactly

// digits × 10^power, for at most 15 digits and a power within the largest: it is rounded once, and so is the same
// double as reading the number's text.
[[nodiscard]] inline double scaled(double digits, int power) {
    constexpr std::array<double, largest_power + 1> powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                           1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                           1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    return power < 0 ? digits / powers[static_cast<std::size_t>(-power)]
                     : digits * powers[static_cast<std::size_t>(power)];
}

// The whole text is the number, or it is absent: no blanks, no units, neither infinite nor too large for a double.
[[nodiscard]] LogNumber read_log_number(std::string_view text);

// `others` takes what does not fit; the same list belongs to unpacked().
using PackedNumber = std::int32_t; // digits above, the power in the lowest eight bits
namespace packing {
inline constexpr PackedNumber absent = 0x7F; // in the place of the power
inline constexpr PackedNumber listed = 0x7E;
inline constexpr int power_bits = 8;
} // namespace packing

[[nodiscard]] inline PackedNumber packed(const LogNumber& number, std::vector<double>& others) {
    if (number.power != LogNumber::no_power)
        return static_cast<PackedNumber>(static_cast<std::uint32_t>(number.digits) << packing::power_bits |
                                         (static_cast<std::uint32_t>(number.power) & 0xFFU));
    if (number.value != number.value)
        return packing::absent;
    others.push_back(number.value);
    return static_cast<PackedNumber>((others.size() - 1) << packing::power_bits) | packing::listed;
}

[[nodiscard]] inline double unpacked(PackedNumber number, const std::vector<double>& others) {
    const auto power = static_cast<std::int8_t>(number & 0xFF);
    const PackedNumber digits = number >> packing::power_bits;
    if (power < packing::listed)
        return scaled(digits, power);
    return power == packing::absent ? std::numeric_limits<double>::quiet_NaN()
                                    : others[static_cast<std::size_t>(digits)];
}

} // namespace tickervantage
