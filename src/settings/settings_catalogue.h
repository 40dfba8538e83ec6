// All settings as one list, and loading and saving through a typed key.
//
// For windows: load(settings, settings::chronyc_interval), save(settings, settings::chronyc_interval, 5). For tools
// that take keys and values as text: find_setting, default_text, check_setting. Main thread where a store is involved.
#pragma once

#include "settings/default_settings.h"
#include "settings/settings_keys.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

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

// Reads a text that someone typed. 0: `value` is what to store. -1: `reason` is one sentence that names kind and range.
[[nodiscard]] int check_setting(const SettingKey& setting, std::string_view text, std::vector<std::string>& value,
                                std::string& reason);

[[nodiscard]] bool load(const DefaultSettings& settings, const BooleanKey& key);
[[nodiscard]] std::int64_t load(const DefaultSettings& settings, const IntegerKey& key);
[[nodiscard]] double load(const DefaultSettings& settings, const DoubleKey& key);
[[nodiscard]] std::string load(const DefaultSettings& settings, const TextKey& key);
[[nodiscard]] std::vector<std::string> load(const DefaultSettings& settings, const TextListKey& key);
[[nodiscard]] Color load(const DefaultSettings& settings, const ColorKey& key);
[[nodiscard]] Font load(const DefaultSettings& settings, const FontKey& key);

void save(DefaultSettings& settings, const BooleanKey& key, bool value);
void save(DefaultSettings& settings, const IntegerKey& key, std::int64_t value);
void save(DefaultSettings& settings, const DoubleKey& key, double value);
void save(DefaultSettings& settings, const TextKey& key, const std::string& value);
void save(DefaultSettings& settings, const TextListKey& key, const std::vector<std::string>& value);
void save(DefaultSettings& settings, const ColorKey& key, Color value);
void save(DefaultSettings& settings, const FontKey& key, const Font& value);

} // namespace tickervantage
