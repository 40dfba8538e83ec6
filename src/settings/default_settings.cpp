#include "settings/default_settings.h"

namespace tickervantage {

// A list where one text belongs comes from a file edited by hand, with a comma that was not quoted.
std::optional<std::string> DefaultSettings::text(std::string_view key) const {
    const auto value = m_store.read(key);
    return value && !value->empty() ? text_of(*value) : std::nullopt;
}

bool DefaultSettings::is_known(std::string_view key, const SettingList& texts) const {
    const auto known = m_known.find(key);
    return known != m_known.end() && known->second == texts;
}

void DefaultSettings::remember(std::string_view key, SettingList texts) const {
    m_known.insert_or_assign(std::string(key), std::move(texts));
}

void DefaultSettings::forget(std::string_view key) {
    if (const auto known = m_known.find(key); known != m_known.end())
        m_known.erase(known);
}

void DefaultSettings::reset(std::string_view key) {
    m_store.remove(key);
    forget(key);
}

} // namespace tickervantage
