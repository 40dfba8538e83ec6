#include "platform/default_settings.h"

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

bool DefaultSettings::loadBool(std::string_view key, bool fallback) const {
    const auto stored = text(key);
    return stored ? bool_from_text(*stored).value_or(fallback) : fallback;
}

std::int64_t DefaultSettings::loadInteger(std::string_view key, std::int64_t fallback) const {
    const auto stored = text(key);
    return stored ? integer_from_text(*stored).value_or(fallback) : fallback;
}

double DefaultSettings::loadDouble(std::string_view key, double fallback) const {
    const auto stored = text(key);
    return stored ? double_from_text(*stored).value_or(fallback) : fallback;
}

std::string DefaultSettings::loadString(std::string_view key, const std::string& fallback) const {
    return text(key).value_or(fallback);
}

std::vector<std::string> DefaultSettings::loadStringArray(std::string_view key) const {
    return m_store.read(key).value_or(std::vector<std::string>{});
}

Color DefaultSettings::loadColor(std::string_view key, Color fallback) const {
    const auto stored = text(key);
    return stored ? color_from_text(*stored).value_or(fallback) : fallback;
}

Font DefaultSettings::loadFont(std::string_view key, const Font& fallback) const {
    const auto stored = text(key);
    return stored ? font_from_text(*stored).value_or(fallback) : fallback;
}

void DefaultSettings::saveBool(std::string_view key, bool value) {
    m_store.write(key, {text_from_bool(value)});
}

void DefaultSettings::saveInteger(std::string_view key, std::int64_t value) {
    m_store.write(key, {text_from_integer(value)});
}

void DefaultSettings::saveDouble(std::string_view key, double value) {
    if (const auto text = text_from_double(value))
        m_store.write(key, {*text});
}

void DefaultSettings::saveString(std::string_view key, const std::string& value) {
    m_store.write(key, {value});
}

void DefaultSettings::saveStringArray(std::string_view key, const std::vector<std::string>& value) {
    m_store.write(key, value);
}

void DefaultSettings::saveColor(std::string_view key, Color value) {
    if (const auto text = text_from_color(value))
        m_store.write(key, {*text});
}

void DefaultSettings::saveFont(std::string_view key, const Font& value) {
    if (const auto text = text_from_font(value))
        m_store.write(key, {*text});
    else if (value.family.empty())
        m_store.remove(key);
}

} // namespace tickervantage
