#include "base/setting_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace tickervantage {

namespace {

constexpr double largest_point_size = 1000;

template <class Number>
std::optional<Number> number_from_text(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc{} || stop != end)
        return std::nullopt;
    return number;
}

template <class Number>
std::string text_from_number(Number number) {
    std::array<char, 32> buffer{}; // the longest double takes 24 characters
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), written.ptr};
}

std::optional<double> part_from_hex(std::string_view two_digits) {
    unsigned part = 0;
    const char* const end = two_digits.data() + two_digits.size();
    const auto [stop, error] = std::from_chars(two_digits.data(), end, part, 16);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return part / 255.0;
}

void append_part(std::string& text, double part) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto level = static_cast<std::size_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    text += digits[level / 16];
    text += digits[level % 16];
}

bool is_usable(const Font& font) {
    return !font.family.empty() && font.point_size > 0 && font.point_size <= largest_point_size;
}

struct Utf8Form {
    unsigned char mask;
    unsigned char lead;
    std::size_t length;
    unsigned smallest; // shorter forms exist below it
};

constexpr std::array<Utf8Form, 4> utf8_forms{{
    {.mask = 0x80, .lead = 0x00, .length = 1, .smallest = 1},
    {.mask = 0xE0, .lead = 0xC0, .length = 2, .smallest = 0x80},
    {.mask = 0xF0, .lead = 0xE0, .length = 3, .smallest = 0x800},
    {.mask = 0xF8, .lead = 0xF0, .length = 4, .smallest = 0x10000},
}};

// The length in bytes of the character in front, 0 when there is none.
std::size_t character_length(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const auto* const form =
        std::ranges::find_if(utf8_forms, [&](const Utf8Form& one) { return (first & one.mask) == one.lead; });
    if (form == utf8_forms.end() || form->length > text.size())
        return 0;
    unsigned code = first & static_cast<unsigned char>(~form->mask);
    for (const char byte : text.substr(1, form->length - 1)) {
        if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U)
            return 0;
        code = (code << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < form->smallest || code > 0x10FFFF || surrogate ? 0 : form->length;
}

} // namespace

std::optional<bool> bool_from_text(std::string_view text) {
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

std::optional<std::int64_t> integer_from_text(std::string_view text) {
    return number_from_text<std::int64_t>(text);
}

std::optional<double> double_from_text(std::string_view text) {
    const auto number = number_from_text<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<Color> color_from_text(std::string_view text) {
    if ((text.size() != 7 && text.size() != 9) || text.front() != '#')
        return std::nullopt;
    const auto red = part_from_hex(text.substr(1, 2));
    const auto green = part_from_hex(text.substr(3, 2));
    const auto blue = part_from_hex(text.substr(5, 2));
    const auto alpha = text.size() == 9 ? part_from_hex(text.substr(7, 2)) : std::optional(1.0);
    if (!red || !green || !blue || !alpha)
        return std::nullopt;
    return Color{.red = *red, .green = *green, .blue = *blue, .alpha = *alpha};
}

std::optional<Font> font_from_text(std::string_view text) {
    const auto comma = text.rfind(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const auto size = double_from_text(text.substr(comma + 1));
    const Font font{.family = std::string(text.substr(0, comma)), .point_size = size.value_or(0)};
    return is_usable(font) ? std::optional(font) : std::nullopt;
}

std::string text_from_bool(bool value) {
    return value ? "true" : "false";
}

std::string text_from_integer(std::int64_t value) {
    return text_from_number(value);
}

std::optional<std::string> text_from_double(double value) {
    return std::isfinite(value) ? std::optional(text_from_number(value)) : std::nullopt;
}

std::optional<std::string> text_from_color(Color value) {
    if (std::isnan(value.red) || std::isnan(value.green) || std::isnan(value.blue) || std::isnan(value.alpha))
        return std::nullopt;
    std::string text = "#";
    for (const double part : {value.red, value.green, value.blue})
        append_part(text, part);
    if (value.alpha < 1)
        append_part(text, value.alpha);
    return text;
}

std::optional<std::string> text_from_font(const Font& value) {
    if (!is_usable(value))
        return std::nullopt;
    return value.family + "," + text_from_number(value.point_size);
}

bool is_plain_utf8(std::string_view text) {
    while (!text.empty()) {
        const auto length = character_length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace tickervantage
