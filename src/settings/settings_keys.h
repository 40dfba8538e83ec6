// The kinds of settings, and each setting by name: settings::chronyc_interval is the row of settings_table.h.
#pragma once

#include "settings/setting_value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// A range with Limit::when_loaded is that of the control which shows the value: what lies outside is moved to the
// nearest end when it is loaded. With Limit::when_set it is only asked for on the command line, and the reader gets
// what is stored: it has a rule of its own for such values.
enum class Limit : unsigned char { when_loaded, when_set };
enum class TextRule : unsigned char { any, trimmed, absolute_path };

struct NoDefault {};

template <class Of, class Default = Of>
struct PlainKey {
    using Value = Of;
    std::string_view key;
    Default fallback;
    std::string_view description;
};

template <class Number>
struct NumberKey {
    using Value = Number;
    std::string_view key;
    Number fallback;
    std::string_view description;
    Number minimum;
    Number maximum;
    Limit limit = Limit::when_loaded;
    std::optional<Number> gap = std::nullopt; // a value inside the range that stands for nothing
};

struct TextKey {
    using Value = std::string;
    std::string_view key;
    std::string_view fallback;
    std::string_view description;
    TextRule rule = TextRule::any;
};

using BooleanKey = PlainKey<bool>;
using IntegerKey = NumberKey<std::int64_t>;
using DoubleKey = NumberKey<double>;
using TextListKey = PlainKey<std::vector<std::string>, NoDefault>; // no texts
using ColorKey = PlainKey<Color>;
using FontKey = PlainKey<Font, NoDefault>; // the window's own

// "#rrggbb" as a number.
[[nodiscard]] constexpr Color rgb(unsigned value) {
    return {.red = ((value >> 16U) & 0xFFU) / 255.0,
            .green = ((value >> 8U) & 0xFFU) / 255.0,
            .blue = (value & 0xFFU) / 255.0,
            .alpha = 1.0};
}

namespace settings {

#define TV_SETTING(kind, name, ...) inline constexpr kind name{#name, __VA_ARGS__};
#include "settings/settings_table.h" // IWYU pragma: keep
#undef TV_SETTING

// The offset's standard deviation always starts in this colour; a change lasts as long as its window.
inline constexpr Color sdOffsetColor = rgb(0xB8DABC);

} // namespace settings
} // namespace tickervantage
