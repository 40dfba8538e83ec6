#include "settings/setting_value.h"

#include "base/hexadecimal.h"
#include "base/number_text.h"
#include "base/text_lines.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>

namespace tickervantage {
namespace {

constexpr double largest_point_size = 1000;

std::uint8_t level_of(double part) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

bool is_usable(const Font& font) {
    return !font.family.empty() && font.point_size > 0 && font.point_size <= largest_point_size;
}

} // namespace

template <>
std::optional<bool> value_from_text(std::string_view text) {
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

template <>
std::optional<std::int64_t> value_from_text(std::string_view text) {
    return number_from_text<std::int64_t>(text);
}

template <>
std::optional<double> value_from_text(std::string_view text) {
    return number_from_text<double>(text);
}

template <>
std::optional<std::string> value_from_text(std::string_view text) {
    return std::string(text);
}

template <>
std::optional<SettingList> value_from_text(std::string_view text) {
    SettingList parts;
    while (!text.empty()) {
        const auto comma = std::min(text.find(','), text.size());
        if (const auto part = trimmed(text.substr(0, comma)); !part.empty())
            parts.emplace_back(part);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return parts;
}

template <>
std::optional<Color> value_from_text(std::string_view text) {
    std::array<std::uint8_t, 4> levels{0, 0, 0, 255};
    if (!text.starts_with('#'))
        return std::nullopt;
    text.remove_prefix(1);
    if (!read_hexadecimal(text, std::span(levels).first(3)) && !read_hexadecimal(text, levels))
        return std::nullopt;
    return Color{
        .red = levels[0] / 255.0, .green = levels[1] / 255.0, .blue = levels[2] / 255.0, .alpha = levels[3] / 255.0};
}

template <>
std::optional<Font> value_from_text(std::string_view text) {
    const auto comma = text.rfind(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    const auto size = number_from_text<double>(text.substr(comma + 1));
    const Font font{.family = std::string(text.substr(0, comma)), .point_size = size.value_or(0)};
    return is_usable(font) ? std::optional(font) : std::nullopt;
}

template <>
std::optional<std::string> text_of(const bool& value) {
    return value ? "true" : "false";
}

template <>
std::optional<std::string> text_of(const std::int64_t& value) {
    return std::to_string(value);
}

template <>
std::optional<std::string> text_of(const double& value) {
    return text_from_double(value);
}

template <>
std::optional<std::string> text_of(const std::string& value) {
    return value;
}

template <>
std::optional<std::string> text_of(const SettingList& value) {
    return fmt::format("{}", fmt::join(value, ","));
}

template <>
std::optional<std::string> text_of(const Color& value) {
    if (std::isnan(value.red) || std::isnan(value.green) || std::isnan(value.blue) || std::isnan(value.alpha))
        return std::nullopt;
    const std::array levels{level_of(value.red), level_of(value.green), level_of(value.blue), level_of(value.alpha)};
    return '#' + hexadecimal(std::span(levels).first(value.alpha < 1 ? 4 : 3));
}

template <>
std::optional<std::string> text_of(const Font& value) {
    const auto size = text_from_double(value.point_size);
    return is_usable(value) ? std::optional(value.family + ',' + size.value_or("")) : std::nullopt;
}

} // namespace tickervantage
