#include "settings/settings_catalogue.h"

#include "base/failure_codes.h"
#include "base/utf8.h"

#include <fmt/format.h>

#include <array>

namespace tickervantage {

namespace {

constexpr auto all_keys = std::to_array<SettingKey>({
#define TV_SETTING(kind, name, ...) settings::name,
#include "settings/settings_table.h" // IWYU pragma: keep
#undef TV_SETTING
});

constexpr std::array<std::string_view, std::variant_size_v<SettingKey>> kinds{"boolean",   "integer", "number", "text",
                                                                              "text list", "colour",  "font"};

// One line of text without control characters.
bool is_plain_line(std::string_view text) {
    return is_plain_utf8(text) &&
           std::ranges::none_of(text, [](char one) { return static_cast<unsigned char>(one) < 0x20 || one == 0x7F; });
}

template <class Key, class Value>
bool fits(const Key&, const Value&) {
    return true;
}

template <class Number>
bool fits(const NumberKey<Number>& key, Number value) {
    return value >= key.minimum && value <= key.maximum && value != key.gap;
}

bool fits(const TextKey& key, const std::string& value) {
    return key.rule != TextRule::absolute_path || value.starts_with('/');
}

template <class Key>
std::optional<SettingList> wanted(const Key& key, std::string_view text) {
    if constexpr (std::same_as<Key, TextKey>)
        text = key.rule == TextRule::trimmed ? trimmed(text) : text;
    const auto typed = is_plain_line(text) ? value_from_text<typename Key::Value>(text) : std::nullopt;
    return typed && fits(key, *typed) ? std::optional(stored_texts(*typed)) : std::nullopt;
}

using Code = FailureCode;

Failure wish(const BooleanKey&) {
    return {Code::a_boolean};
}
Failure wish(const IntegerKey& key) {
    const auto text = [](std::int64_t number) {
        return std::to_string(number);
    };
    if (key.gap)
        return {Code::an_integer_but, {text(key.minimum), text(key.maximum), text(*key.gap)}};
    return {Code::an_integer, {text(key.minimum), text(key.maximum)}};
}
Failure wish(const DoubleKey& key) {
    return {Code::a_number, {fmt::format("{}", key.minimum), fmt::format("{}", key.maximum)}};
}
Failure wish(const TextKey& key) {
    return {key.rule == TextRule::absolute_path ? Code::an_absolute_path : Code::a_line_of_text};
}
Failure wish(const TextListKey&) {
    return {Code::a_list_of_texts};
}
Failure wish(const ColorKey&) {
    return {Code::a_colour};
}
Failure wish(const FontKey&) {
    return {Code::a_font};
}

} // namespace

std::span<const SettingKey> all_settings() {
    return all_keys;
}

const SettingKey* find_setting(std::string_view key) {
    const auto* const found = std::ranges::find(all_keys, key, key_of);
    return found == all_keys.end() ? nullptr : found;
}

std::string_view key_of(const SettingKey& setting) {
    return std::visit([](const auto& one) { return one.key; }, setting);
}

std::string_view description_of(const SettingKey& setting) {
    return std::visit([](const auto& one) { return one.description; }, setting);
}

std::string_view kind_of(const SettingKey& setting) {
    return kinds.at(setting.index());
}

std::optional<std::string> default_text(const SettingKey& setting) {
    return std::visit([](const auto& key) { return text_of(default_of(key)); }, setting);
}

std::optional<std::string> current_text(const DefaultSettings& settings, const SettingKey& setting) {
    return std::visit([&](const auto& key) { return text_of(load(settings, key)); }, setting);
}

Result<SettingList> check_setting(const SettingKey& setting, std::string_view text) {
    auto value = std::visit([&](const auto& key) { return wanted(key, text); }, setting);
    if (value)
        return *std::move(value);
    return failed(Code::setting_takes, {std::string(key_of(setting))},
                  std::visit([](const auto& key) { return wish(key); }, setting));
}

} // namespace tickervantage
