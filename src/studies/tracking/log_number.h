// Numbers of a log: read exactly, and kept in four bytes.
//
// chrony writes at most ten digits, so that a number is a whole number times a power of ten. Up to seven digits of it
// and the power fit into four bytes, and give back the very double that reading the text gives. A number with more
// digits goes into a list beside, and its four bytes say where. Pure functions and a plain value, any thread.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

namespace tickervantage {

struct LogNumber {
    double value = std::numeric_limits<double>::quiet_NaN(); // NaN: absent
    bool has_digits = false;                                 // then value = digits × 10^power
    std::int64_t digits = 0;
    int power = 0;
};

// The number of digits × 10^power, below 0 where `negative`: digits have at most 15 places, the power lies within
// LARGEST_POWER. The same double as reading the number's text.
inline constexpr int LARGEST_POWER = 22;
[[nodiscard]] inline LogNumber log_number(bool negative, std::int64_t digits, int power);

// The whole text is the number, or it is absent: no blanks, no units, neither infinite nor too large nor too small for
// a double. Independent of the locale.
[[nodiscard]] LogNumber read_log_number(std::string_view text);

// A text that is an int as a whole; false otherwise.
[[nodiscard]] bool read_whole_number(std::string_view text, int& number);

class PackedNumber {
public:
    PackedNumber() = default; // absent

    // `others` takes what does not fit; the same list belongs to value().
    PackedNumber(const LogNumber& number, std::vector<double>& others);
    [[nodiscard]] double value(const std::vector<double>& others) const; // NaN: absent

private:
    void pack(std::int64_t above, int low);

    // Marks in the place of the power.
    static constexpr int ABSENT = 0x7F;
    static constexpr int OTHER = 0x7E;
    static constexpr int MINUS_ZERO = 0x7D;
    static constexpr int POWER_BITS = 8;
    static constexpr std::int64_t LARGEST_DIGITS = (std::int64_t{1} << 23) - 1;

    std::int32_t m_bits = ABSENT; // digits above, power in the lowest bits
};

// Inline, because reading a log of a million records does these ten million times.
namespace detail {

// Powers of ten that a double holds exactly: dividing or multiplying by one rounds once, as reading the text would.
inline constexpr std::array<double, LARGEST_POWER + 1> powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

inline double scaled(std::int64_t digits, int power) {
    const auto whole = static_cast<double>(digits);
    return power < 0 ? whole / powers[static_cast<std::size_t>(-power)]
                     : whole * powers[static_cast<std::size_t>(power)];
}

} // namespace detail

inline LogNumber log_number(bool negative, std::int64_t digits, int power) {
    const std::int64_t sign = negative ? -1 : 1; // offsets change theirs at random: no branches
    return {std::copysign(detail::scaled(digits, power), static_cast<double>(sign)), true, digits * sign, power};
}

inline void PackedNumber::pack(std::int64_t above, int low) {
    m_bits = static_cast<std::int32_t>((above << POWER_BITS) | (low & 0xFF));
}

inline PackedNumber::PackedNumber(const LogNumber& number, std::vector<double>& others) {
    if (std::isnan(number.value)) {
        pack(0, ABSENT);
    } else if (number.value == 0 && std::signbit(number.value)) {
        pack(0, MINUS_ZERO);
    } else if (number.has_digits && std::abs(number.digits) <= LARGEST_DIGITS) {
        pack(number.digits, number.power);
    } else {
        pack(static_cast<std::int64_t>(others.size()), OTHER);
        others.push_back(number.value);
    }
}

inline double PackedNumber::value(const std::vector<double>& others) const {
    const auto low = static_cast<std::int8_t>(m_bits & 0xFF);
    const std::int32_t above = m_bits >> POWER_BITS;
    switch (low) {
    case ABSENT:
        return std::numeric_limits<double>::quiet_NaN();
    case MINUS_ZERO:
        return -0.0;
    case OTHER:
        return others[static_cast<std::size_t>(above)];
    default:
        return detail::scaled(above, low);
    }
}

} // namespace tickervantage
