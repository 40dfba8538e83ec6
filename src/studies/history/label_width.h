// How much room a label takes, whatever the font: for what has to be decided before anything is drawn.
#pragma once

#include <algorithm>
#include <string_view>

namespace tickervantage {

// In points, of UTF-8 text in a size.
[[nodiscard]] inline double width_of(std::string_view text, double size) {
    constexpr double letter = 0.62; // in sizes
    const auto letters = std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; });
    return letter * size * static_cast<double>(letters);
}

} // namespace tickervantage
