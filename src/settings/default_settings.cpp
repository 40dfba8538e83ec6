#include "settings/default_settings.h"

#include <utility>

namespace tickervantage {

// A list where one text belongs comes from a file edited by hand, with a comma that was not quoted.
std::optional<std::string> DefaultSettings::text(std::string_view key) const {
    const auto value = m_store.read(key);
    if (!value || value->empty())
        return std::nullopt;
    std::string joined = value->front();
    for (std::size_t index = 1; index < value->size(); ++index)
        joined += "," + (*value)[index];
    return joined;
}

void DefaultSettings::remember(std::string_view key, Texts value) const {
    m_known.insert_or_assign(std::string(key), std::move(value));
}

void DefaultSettings::remember(std::string_view key, const std::optional<std::string>& value) const {
    remember(key, value ? Texts{*value} : Texts{});
}

void DefaultSettings::save(std::string_view key, Texts value) {
    const auto known = m_known.find(key);
    if (known != m_known.end() && known->second == value)
        return;
    m_store.write(key, value);
    remember(key, std::move(value));
}

void DefaultSettings::forget(std::string_view key) {
    if (const auto known = m_known.find(key); known != m_known.end())
        m_known.erase(known);
}

void DefaultSettings::reset(std::string_view key) {
    m_store.remove(key);
    forget(key);
}

bool DefaultSettings::loadBool(std::string_view key, bool fallback) const {
    const auto stored = text(key);
    const bool value = stored ? bool_from_text(*stored).value_or(fallback) : fallback;
    remember(key, text_from_bool(value));
    return value;
}

std::int64_t DefaultSettings::loadInteger(std::string_view key, std::int64_t fallback) const {
    const auto stored = text(key);
    const auto value = stored ? integer_from_text(*stored).value_or(fallback) : fallback;
    remember(key, text_from_integer(value));
    return value;
}

double DefaultSettings::loadDouble(std::string_view key, double fallback) const {
    const auto stored = text(key);
    const double value = stored ? double_from_text(*stored).value_or(fallback) : fallback;
    remember(key, text_from_double(value));
    return value;
}

std::string DefaultSettings::loadString(std::string_view key, const std::string& fallback) const {
    auto value = text(key).value_or(fallback);
    remember(key, value);
    return value;
}

std::vector<std::string> DefaultSettings::loadStringArray(std::string_view key) const {
    auto value = m_store.read(key).value_or(Texts{});
    remember(key, value);
    return value;
}

Color DefaultSettings::loadColor(std::string_view key, Color fallback) const {
    const auto stored = text(key);
    const Color value = stored ? color_from_text(*stored).value_or(fallback) : fallback;
    remember(key, text_from_color(value));
    return value;
}

Font DefaultSettings::loadFont(std::string_view key, const Font& fallback) const {
    const auto stored = text(key);
    Font value = stored ? font_from_text(*stored).value_or(fallback) : fallback;
    remember(key, text_from_font(value));
    return value;
}

void DefaultSettings::saveBool(std::string_view key, bool value) {
    save(key, {text_from_bool(value)});
}

void DefaultSettings::saveInteger(std::string_view key, std::int64_t value) {
    save(key, {text_from_integer(value)});
}

void DefaultSettings::saveDouble(std::string_view key, double value) {
    if (const auto text = text_from_double(value))
        save(key, {*text});
}

void DefaultSettings::saveString(std::string_view key, const std::string& value) {
    save(key, {value});
}

void DefaultSettings::saveStringArray(std::string_view key, const std::vector<std::string>& value) {
    save(key, value);
}

void DefaultSettings::saveColor(std::string_view key, Color value) {
    if (const auto text = text_from_color(value))
        save(key, {*text});
}

void DefaultSettings::saveFont(std::string_view key, const Font& value) {
    if (const auto text = text_from_font(value))
        save(key, {*text});
    else if (const auto known = m_known.find(key);
             value.family.empty() && !(known != m_known.end() && known->second.empty())) {
        m_store.remove(key);
        remember(key, Texts{});
    }
}

} // namespace tickervantage
