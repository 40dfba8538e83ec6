// Characters and numbers as chrony lays them out in its logs, read without looking for their ends first. Inline, since
// a log has millions of them. Pure functions, any thread.
#pragma once

#include "chrony/log/log_number.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace tickervantage {

[[nodiscard]] inline unsigned digit(char one) {
    return static_cast<unsigned>(one) - '0';
}

[[nodiscard]] inline bool is_white(char one) {
    return one == ' ' || (one >= '\t' && one <= '\r');
}

[[nodiscard]] inline LogNumber log_number(bool negative, std::int32_t digits, int power) {
    // Offsets change their sign at random: no branches. What rarely comes goes the long way, into the list.
    const bool is_plain = digits <= LogNumber::largest_digits && (!negative || digits != 0);
    return {.value = std::copysign(scaled(digits, power), negative ? -1.0 : 1.0),
            .digits = negative ? -digits : digits,
            .power = is_plain ? power : LogNumber::no_power};
}

// "%10.3e", such as "-1.234e-05": ten characters, of which eight are looked at at once.
[[nodiscard]] inline bool read_scientific(const char* at, LogNumber& number) {
    if constexpr (std::endian::native != std::endian::little)
        return false;
    std::uint64_t text = 0;
    std::memcpy(&text, at + 1, sizeof text);
    text ^= 0x302D653030302E30U; // "0.000e-0", its last character in the highest bits: leaves the digits' values
    constexpr std::uint64_t digit_places = 0xFF0000FFFFFF00FFU;
    constexpr std::uint64_t sign_place = 0x00FF000000000000U;
    constexpr std::uint64_t plus = 0x0006000000000000U;  // '+' in the place of '-'
    constexpr std::uint64_t carry = 0x0606060606060606U; // takes all above 9 to 16 and more
    constexpr std::uint64_t high_halves = 0xF0F0F0F0F0F0F0F0U;
    const std::uint64_t digits = text & digit_places;
    const std::uint64_t sign = text & sign_place;
    const unsigned last = digit(at[9]);
    // All at once: signs come at random, and a wrong guess at a branch costs more than this.
    const std::uint64_t wrong = ((digits | (digits + carry)) & high_halves) | (text & ~digit_places & ~sign_place);
    const bool fits =
        ((wrong == 0) & ((sign == 0) | (sign == plus)) & (last <= 9) & ((at[0] == ' ') | (at[0] == '-'))) != 0;
    if (!fits)
        return false;
    const auto place = [&](unsigned index) {
        return static_cast<int>(digits >> (8 * index) & 0xFU);
    };
    const int exponent = place(7) * 10 + static_cast<int>(last);
    const int power = (sign == 0 ? -exponent : exponent) - 3;
    if (std::abs(power) > largest_power)
        return false;
    number = log_number(at[0] == '-', place(0) * 1000 + place(2) * 100 + place(3) * 10 + place(4), power);
    return true;
}

} // namespace tickervantage
