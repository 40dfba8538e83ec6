// The seven kinds of values that a setting may have, and their texts, for code that treats all kinds alike: bool,
// std::int64_t, double, std::string, SettingList, Color, Font. Pure functions, any thread.
#pragma once

#include "base/number_text.h"
#include "settings/setting_text.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

using SettingList = std::vector<std::string>;

// The parts between commas, without the blanks around them and without empty ones.
[[nodiscard]] SettingList list_from_text(std::string_view text);
[[nodiscard]] std::string text_from_list(const SettingList& list);

// Of what somebody typed, or what stands in the file.
template <class Value>
[[nodiscard]] std::optional<Value> value_from_text(std::string_view text) {
    if constexpr (std::same_as<Value, bool>)
        return bool_from_text(text);
    else if constexpr (std::same_as<Value, std::int64_t> || std::same_as<Value, double>)
        return number_from_text<Value>(text);
    else if constexpr (std::same_as<Value, SettingList>)
        return list_from_text(text);
    else if constexpr (std::same_as<Value, Color>)
        return color_from_text(text);
    else if constexpr (std::same_as<Value, Font>)
        return font_from_text(text);
    else
        return std::string(text);
}

// None for what no text brings back: infinities, not-a-number, no font.
template <class Value>
[[nodiscard]] std::optional<std::string> text_of(const Value& value) {
    if constexpr (std::same_as<Value, bool>)
        return text_from_bool(value);
    else if constexpr (std::same_as<Value, std::int64_t>)
        return std::to_string(value);
    else if constexpr (std::same_as<Value, double>)
        return text_from_double(value);
    else if constexpr (std::same_as<Value, SettingList>)
        return text_from_list(value);
    else if constexpr (std::same_as<Value, Color>)
        return text_from_color(value);
    else if constexpr (std::same_as<Value, Font>)
        return text_from_font(value);
    else
        return value;
}

// As it is stored: a list text by text, anything else as its one text or, where there is none, none.
template <class Value>
[[nodiscard]] SettingList stored_texts(const Value& value) {
    if constexpr (std::same_as<Value, SettingList>)
        return value;
    const auto text = text_of(value);
    return text ? SettingList{*text} : SettingList{};
}

} // namespace tickervantage
