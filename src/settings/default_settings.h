// Typed settings over a SettingsStore.
//
// Every load takes the value that stands in for an absent or unreadable one. How values look as text is said in
// platform/setting_text.h. A save of a value that cannot be written as text (an infinity, not-a-number) changes
// nothing; a font without a family removes the key. The store must outlive this object. Main thread only.
//
// A save of what was loaded changes nothing either, whatever the store holds by now: who shows a setting and saves it
// again must not undo what was set elsewhere meanwhile.
#pragma once

#include "base/setting_text.h"
#include "settings/settings_store.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class DefaultSettings {
public:
    explicit DefaultSettings(SettingsStore& store) : m_store(store) {}

    [[nodiscard]] bool loadBool(std::string_view key, bool fallback) const;
    [[nodiscard]] std::int64_t loadInteger(std::string_view key, std::int64_t fallback) const;
    [[nodiscard]] double loadDouble(std::string_view key, double fallback) const;
    [[nodiscard]] std::string loadString(std::string_view key, const std::string& fallback) const;
    [[nodiscard]] std::vector<std::string> loadStringArray(std::string_view key) const;
    [[nodiscard]] Color loadColor(std::string_view key, Color fallback) const;
    [[nodiscard]] Font loadFont(std::string_view key, const Font& fallback) const;

    void saveBool(std::string_view key, bool value);
    void saveInteger(std::string_view key, std::int64_t value);
    void saveDouble(std::string_view key, double value);
    void saveString(std::string_view key, const std::string& value);
    void saveStringArray(std::string_view key, const std::vector<std::string>& value);
    void saveColor(std::string_view key, Color value);
    void saveFont(std::string_view key, const Font& value);

    [[nodiscard]] bool is_stored(std::string_view key) const { return m_store.read(key).has_value(); }
    void reset(std::string_view key); // as if it had never been saved

    // What was loaded under the key is saved the next time, though nobody changed it.
    void forget(std::string_view key);

private:
    using Texts = std::vector<std::string>;

    [[nodiscard]] std::optional<std::string> text(std::string_view key) const;
    void remember(std::string_view key, Texts value) const;
    void remember(std::string_view key, const std::optional<std::string>& value) const;
    void save(std::string_view key, Texts value);

    SettingsStore& m_store;
    mutable std::map<std::string, Texts, std::less<>> m_known; // as it was loaded or saved last
};

} // namespace tickervantage
