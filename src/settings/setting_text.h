// Settings as plain text: what stands in the settings file, and what people type on a command line. Whole numbers and
// floating-point ones are as base/number_text.h has them.
//
// Reading takes the whole text or nothing. Writing gives the shortest text that reads back exactly. Pure functions, any
// thread.
#pragma once

#include "base/color.h"

#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct Font {
    std::string family; // empty: no font chosen
    double point_size = 0;
    friend bool operator==(const Font&, const Font&) = default;
};

[[nodiscard]] std::optional<bool> bool_from_text(std::string_view text);   // "true", "1", "false", "0"
[[nodiscard]] std::optional<Color> color_from_text(std::string_view text); // "#rrggbb" or "#rrggbbaa"
[[nodiscard]] std::optional<Font> font_from_text(std::string_view text);   // family, comma, size above 0 in points

[[nodiscard]] std::string text_from_bool(bool value);

// No text for values that no text can bring back: not-a-number, a font without a family or size.
[[nodiscard]] std::optional<std::string> text_from_color(Color value); // parts outside 0 to 1 are limited to it
[[nodiscard]] std::optional<std::string> text_from_font(const Font& value);

} // namespace tickervantage
