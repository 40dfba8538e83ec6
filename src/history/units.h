// How the file keeps quantities: whole numbers of the last digit that chronyc prints.
#pragma once

#include "history/records.h"

namespace tickervantage {

inline constexpr double units_a_second = 1e9;

// How many of them make a second, or a ppm.
[[nodiscard]] constexpr double units_of(HistoryQuantity quantity) {
    using enum HistoryQuantity;
    const bool is_frequency = quantity == frequency_ppm || quantity == residual_frequency_ppm || quantity == skew_ppm;
    return is_frequency ? 1e3 : units_a_second;
}

// What is known of a source in words, in one number of three bytes.
struct KeptState {
    char letter;
    std::int64_t rule;
    unsigned reach;
};

[[nodiscard]] constexpr std::int64_t kept_number(const KeptState& state) {
    return (std::int64_t{state.letter} & 0x7F) << 13 | (state.rule & 0x1F) << 8 | (state.reach & 0xFF);
}

// A number from a file, which may hold anything: a letter that cannot be printed is '?'.
[[nodiscard]] constexpr KeptState kept_state(std::int64_t number) {
    const auto letter = static_cast<char>(number >> 13 & 0x7F);
    return {letter > ' ' && letter < 0x7F ? letter : '?', number >> 8 & 0x1F, static_cast<unsigned>(number & 0xFF)};
}

} // namespace tickervantage
