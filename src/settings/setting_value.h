// The seven kinds of values that a setting may have, and their texts: what stands in the settings file, and what people
// type on a command line. Numbers are as base/number_text.h has them.
//
// Reading takes the whole text or nothing. Writing gives the shortest text that reads back exactly. Pure functions, any
// thread.
#pragma once

#include "base/color.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tickervantage {

using SettingList = std::vector<std::string>;

struct Font {
    std::string family; // empty: no font chosen
    double point_size = 0;
    friend bool operator==(const Font&, const Font&) = default;
};

// Of what somebody typed, or what stands in the file.
template <class Value>
[[nodiscard]] std::optional<Value> value_from_text(std::string_view text) = delete;
template <>
std::optional<bool> value_from_text(std::string_view text); // "true", "1", "false", "0"
template <>
std::optional<std::int64_t> value_from_text(std::string_view text);
template <>
std::optional<double> value_from_text(std::string_view text);
template <>
std::optional<std::string> value_from_text(std::string_view text);
template <>
std::optional<SettingList> value_from_text(std::string_view text); // between commas, without blanks and empty parts
template <>
std::optional<Color> value_from_text(std::string_view text); // "#rrggbb" or "#rrggbbaa"
template <>
std::optional<Font> value_from_text(std::string_view text); // family, comma, size above 0 in points

// None for what no text brings back: infinities, not-a-number, a font without a family or size. Parts of a colour
// outside 0 to 1 are limited to it.
template <class Value>
[[nodiscard]] std::optional<std::string> text_of(const Value& value) = delete;
template <>
std::optional<std::string> text_of(const bool& value);
template <>
std::optional<std::string> text_of(const std::int64_t& value);
template <>
std::optional<std::string> text_of(const double& value);
template <>
std::optional<std::string> text_of(const std::string& value);
template <>
std::optional<std::string> text_of(const SettingList& value);
template <>
std::optional<std::string> text_of(const Color& value);
template <>
std::optional<std::string> text_of(const Font& value);

// As it is stored: a list text by text, anything else as its one text or, where there is none, none.
template <class Value>
[[nodiscard]] SettingList stored_texts(const Value& value) {
    if constexpr (std::is_same_v<Value, SettingList>)
        return value;
    const auto text = text_of(value);
    return text ? SettingList{*text} : SettingList{};
}

} // namespace tickervantage
