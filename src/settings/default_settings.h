// Typed settings over a SettingsStore.
//
// Every load takes the value that stands in for an absent or unreadable one. How values look as text is said in
// setting_value.h. A save of a value that cannot be written as text (an infinity, not-a-number) changes nothing; a font
// without a family removes the key. The store must outlive this object. Main thread only.
//
// A save of what was loaded changes nothing either, whatever the store holds by now: who shows a setting and saves it
// again must not undo what was set elsewhere meanwhile.
#pragma once

#include "settings/setting_value.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage {

// Named texts that outlive the program: the raw store behind the typed settings.
//
// Main thread only, and never waits for the disk: reading was done when the store was made, writing happens behind.
// Keys that the program does not know survive every save.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // A value is a list of texts; a plain value has exactly one. Absent keys give no value.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> read(std::string_view key) const = 0;
    virtual void write(std::string_view key, const std::vector<std::string>& value) = 0;
    virtual void remove(std::string_view key) = 0;
};

class DefaultSettings {
public:
    explicit DefaultSettings(SettingsStore& store) : m_store(store) {}

    // For the seven kinds of values below.
    template <class Value>
    [[nodiscard]] Value load(std::string_view key, Value fallback) const;
    template <class Value>
    void save(std::string_view key, const Value& value);

    [[nodiscard]] bool loadBool(std::string_view key, bool fallback) const { return load(key, fallback); }
    [[nodiscard]] std::int64_t loadInteger(std::string_view key, std::int64_t fallback) const {
        return load(key, fallback);
    }
    [[nodiscard]] double loadDouble(std::string_view key, double fallback) const { return load(key, fallback); }
    [[nodiscard]] std::string loadString(std::string_view key, const std::string& fallback) const {
        return load(key, fallback);
    }
    [[nodiscard]] SettingList loadStringArray(std::string_view key) const { return load(key, SettingList()); }
    [[nodiscard]] Color loadColor(std::string_view key, Color fallback) const { return load(key, fallback); }
    [[nodiscard]] Font loadFont(std::string_view key, const Font& fallback) const { return load(key, fallback); }

    void saveBool(std::string_view key, bool value) { save(key, value); }
    void saveInteger(std::string_view key, std::int64_t value) { save(key, value); }
    void saveDouble(std::string_view key, double value) { save(key, value); }
    void saveString(std::string_view key, const std::string& value) { save(key, value); }
    void saveStringArray(std::string_view key, const SettingList& value) { save(key, value); }
    void saveColor(std::string_view key, Color value) { save(key, value); }
    void saveFont(std::string_view key, const Font& value) { save(key, value); }

    [[nodiscard]] bool is_stored(std::string_view key) const { return m_store.read(key).has_value(); }
    void reset(std::string_view key); // as if it had never been saved

    // What was loaded under the key is saved the next time, though nobody changed it.
    void forget(std::string_view key);

private:
    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;
    [[nodiscard]] bool is_known(std::string_view key, const SettingList& texts) const;
    void remember(std::string_view key, SettingList texts) const;

    SettingsStore& m_store;
    mutable std::map<std::string, SettingList, std::less<>> m_known; // as it was loaded or saved last
};

template <class Value>
Value DefaultSettings::load(std::string_view key, Value fallback) const {
    if constexpr (std::is_same_v<Value, SettingList>)
        fallback = m_store.read(key).value_or(std::move(fallback));
    else if (const auto stored = text(key))
        fallback = value_from_text<Value>(*stored).value_or(std::move(fallback));
    remember(key, stored_texts(fallback));
    return fallback;
}

template <class Value>
void DefaultSettings::save(std::string_view key, const Value& value) {
    auto texts = stored_texts(value);
    bool is_no_font = false;
    if constexpr (std::is_same_v<Value, Font>)
        is_no_font = value.family.empty();
    if (is_known(key, texts) || (texts.empty() && !is_no_font && !std::is_same_v<Value, SettingList>))
        return;
    if (is_no_font)
        m_store.remove(key);
    else
        m_store.write(key, texts);
    remember(key, std::move(texts));
}

} // namespace tickervantage
