// Loading and saving by a setting's key, and all settings as one list.
//
// For windows: load(settings, settings::chronyc_interval), save(settings, settings::chronyc_interval, 5). For tools
// that take keys and values as text: find_setting, default_text, check_setting. Main thread where a store is involved.
#pragma once

#include "base/failure.h"
#include "base/text_lines.h"
#include "settings/default_settings.h"
#include "settings/settings_keys.h"

#include <algorithm>
#include <span>
#include <variant>

namespace tickervantage {

using SettingKey = std::variant<BooleanKey, IntegerKey, DoubleKey, TextKey, TextListKey, ColorKey, FontKey>;

[[nodiscard]] std::span<const SettingKey> all_settings();           // window by window
[[nodiscard]] const SettingKey* find_setting(std::string_view key); // null: no such key

[[nodiscard]] std::string_view key_of(const SettingKey& setting);
[[nodiscard]] std::string_view description_of(const SettingKey& setting);
[[nodiscard]] std::string_view kind_of(const SettingKey& setting); // "boolean", "integer", ...

// The default as people type it; no text where there is none (fonts). Lists are joined by commas.
[[nodiscard]] std::optional<std::string> default_text(const SettingKey& setting);

// What the program works with now: the stored value, or the default where it is absent or unreadable, limited as the
// windows limit it. No text where there is no value.
[[nodiscard]] std::optional<std::string> current_text(const DefaultSettings& settings, const SettingKey& setting);

// What to store for a text that someone typed. The failure names kind and range.
[[nodiscard]] Result<SettingList> check_setting(const SettingKey& setting, std::string_view text);

template <class Key>
[[nodiscard]] typename Key::Value default_of(const Key& key) {
    if constexpr (std::same_as<decltype(key.fallback), NoDefault>)
        return {};
    else
        return typename Key::Value(key.fallback);
}

// As it is compared and stored.
template <class Key>
[[nodiscard]] typename Key::Value normal(const Key& key, typename Key::Value value) {
    if constexpr (std::same_as<Key, TextKey>)
        return key.rule == TextRule::trimmed ? std::string(trimmed(value)) : value;
    return value;
}

template <class Key>
[[nodiscard]] typename Key::Value load(const DefaultSettings& settings, const Key& key) {
    return normal(key, settings.load(key.key, default_of(key)));
}

template <class Number>
[[nodiscard]] Number load(const DefaultSettings& settings, const NumberKey<Number>& key) {
    const Number stored = settings.load(key.key, key.fallback);
    if (key.limit == Limit::when_set)
        return stored;
    return stored == key.gap ? key.fallback : std::clamp(stored, key.minimum, key.maximum);
}

template <class Key>
void save(DefaultSettings& settings, const Key& key, const typename Key::Value& value) {
    settings.save(key.key, normal(key, value));
}

// For records whose fields are listed once, each with its key: `visit(settings::chronyc_interval, record.m_interval)`.
// What to visit them with to load, to save, or to put the defaults into them.
[[nodiscard]] inline auto loading(const DefaultSettings& settings) {
    return [&settings]<class Field>(const auto& key, Field& field) {
        field = static_cast<Field>(load(settings, key));
    };
}

[[nodiscard]] inline auto saving(DefaultSettings& settings) {
    return [&settings]<class Key>(const Key& key, const auto& field) {
        save(settings, key, static_cast<typename Key::Value>(field));
    };
}

[[nodiscard]] inline auto restoring() {
    return []<class Field>(const auto& key, Field& field) {
        field = static_cast<Field>(default_of(key));
    };
}

} // namespace tickervantage
