// Settings as plain text: what stands in the settings file, and what people type on a command line.
//
// Independent of the locale. Reading takes the whole text or nothing: no blanks, no signs in front other than "-", no
// units. Writing gives the shortest text that reads back exactly. Pure functions, any thread.
#pragma once

#include "base/color.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct Font {
    std::string family; // empty: no font chosen
    double point_size = 0;
    friend bool operator==(const Font&, const Font&) = default;
};

[[nodiscard]] std::optional<bool> bool_from_text(std::string_view text); // "true", "1", "false", "0"
[[nodiscard]] std::optional<std::int64_t> integer_from_text(std::string_view text);
[[nodiscard]] std::optional<double> double_from_text(std::string_view text); // finite values only
[[nodiscard]] std::optional<Color> color_from_text(std::string_view text);   // "#rrggbb" or "#rrggbbaa"
[[nodiscard]] std::optional<Font> font_from_text(std::string_view text);     // family, comma, size above 0 in points

[[nodiscard]] std::string text_from_bool(bool value);
[[nodiscard]] std::string text_from_integer(std::int64_t value);

// No text for values that no text can bring back: infinities, not-a-number, a font without a family or size.
[[nodiscard]] std::optional<std::string> text_from_double(double value);
[[nodiscard]] std::optional<std::string> text_from_color(Color value); // parts outside 0 to 1 are limited to it
[[nodiscard]] std::optional<std::string> text_from_font(const Font& value);

// Whether every byte belongs to a well-formed UTF-8 character, none of them the zero character.
[[nodiscard]] bool is_plain_utf8(std::string_view text);

} // namespace tickervantage
