#include "settings/settings_catalogue.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace tickervantage {

namespace {

using namespace settings;

constexpr std::array all_keys{
    SettingKey(chronyc_command),
    SettingKey(meter_view),
    SettingKey(ip_address),
    SettingKey(original_name),
    SettingKey(chronyc_interval),
    SettingKey(ntpdata_server),
    SettingKey(CHRONYC_Font),
    SettingKey(file_config),
    SettingKey(file_chronyc),
    SettingKey(file_chronyd),
    SettingKey(file_chronywake),
    SettingKey(make_thresh),
    SettingKey(make_limit),
    SettingKey(burst_good),
    SettingKey(burst_max),
    SettingKey(burst_netmask),
    SettingKey(launch_login),
    SettingKey(adj_system),
    SettingKey(install_wake),
    SettingKey(restart_gpsd),
    SettingKey(enable_frequency_win),
    SettingKey(enable_spectrum_win),
    SettingKey(sync_ntp_server),
    SettingKey(sync_timeout),
    SettingKey(sync_restart_chronyd),
    SettingKey(tracking_dateTimeRange),
    SettingKey(tracking_use_logscale),
    SettingKey(tracking_vZoom),
    SettingKey(tracking_hZoom),
    SettingKey(tracking_vScale),
    SettingKey(tracking_offsetShow),
    SettingKey(tracking_meanOffsetShow),
    SettingKey(tracking_rmsOffsetShow),
    SettingKey(tracking_sdOffsetShow),
    SettingKey(tracking_frequencyShow),
    SettingKey(tracking_systemtimeShow),
    SettingKey(tracking_mean_systemtimeShow),
    SettingKey(tracking_rms_systemtimeShow),
    SettingKey(tracking_rootdispersionShow),
    SettingKey(tracking_offsetColor),
    SettingKey(tracking_meanOffsetColor),
    SettingKey(tracking_rmsOffsetColor),
    SettingKey(tracking_frequencyColor),
    SettingKey(tracking_systemtimeColor),
    SettingKey(tracking_mean_systemtimeColor),
    SettingKey(tracking_rms_systemtimeColor),
    SettingKey(tracking_rootdispersionColor),
    SettingKey(show_scatter_points),
    SettingKey(show_mean_frequency),
    SettingKey(show_freq_bounds),
    SettingKey(show_last_record),
    SettingKey(max_samples),
    SettingKey(regression_order),
    SettingKey(SPECTRUM_interval),
    SettingKey(SPECTRUM_duration),
    SettingKey(recent_configurations),
    SettingKey(IgnoreWarnings),
};

constexpr std::array<std::string_view, std::variant_size_v<SettingKey>> kinds{"boolean",   "integer", "number", "text",
                                                                              "text list", "colour",  "font"};

template <class... Parts>
struct Overloaded : Parts... {
    using Parts::operator()...;
};
template <class... Parts>
Overloaded(Parts...) -> Overloaded<Parts...>;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\n\r\f\v";
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool has_control(std::string_view text) {
    return std::ranges::any_of(text, [](char one) { return static_cast<unsigned char>(one) < 0x20 || one == 0x7F; });
}

std::string joined(const std::vector<std::string>& texts) {
    return fmt::format("{}", fmt::join(texts, ","));
}

std::vector<std::string> split(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const auto comma = std::min(text.find(','), text.size());
        if (const auto part = trimmed(text.substr(0, comma)); !part.empty())
            parts.emplace_back(part);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return parts;
}

std::optional<std::string> wanted(const BooleanKey&, std::string_view text) {
    const auto value = bool_from_text(text);
    return value ? std::optional(text_from_bool(*value)) : std::nullopt;
}

std::optional<std::string> wanted(const IntegerKey& key, std::string_view text) {
    const auto value = integer_from_text(text);
    if (!value || *value < key.minimum || *value > key.maximum || value == key.gap)
        return std::nullopt;
    return text_from_integer(*value);
}

std::optional<std::string> wanted(const DoubleKey& key, std::string_view text) {
    const auto value = double_from_text(text);
    return value && *value >= key.minimum && *value <= key.maximum ? text_from_double(*value) : std::nullopt;
}

std::optional<std::string> wanted(const TextKey& key, std::string_view text) {
    if (key.rule == TextRule::trimmed)
        text = trimmed(text);
    if (has_control(text) || !is_plain_utf8(text) || (key.rule == TextRule::absolute_path && !text.starts_with('/')))
        return std::nullopt;
    return std::string(text);
}

std::optional<std::string> wanted(const TextListKey&, std::string_view text) {
    return has_control(text) || !is_plain_utf8(text) ? std::nullopt : std::optional(std::string(text));
}

std::optional<std::string> wanted(const ColorKey&, std::string_view text) {
    const auto value = color_from_text(text);
    return value ? text_from_color(*value) : std::nullopt;
}

std::optional<std::string> wanted(const FontKey&, std::string_view text) {
    const auto value = has_control(text) || !is_plain_utf8(text) ? std::nullopt : font_from_text(text);
    return value ? text_from_font(*value) : std::nullopt;
}

std::string wish(const SettingKey& setting) {
    return std::visit(
        Overloaded{
            [](const BooleanKey&) -> std::string { return "true or false"; },
            [](const IntegerKey& key) {
                const auto gap = key.gap ? fmt::format(" other than {}", *key.gap) : std::string{};
                return fmt::format("a whole number from {} to {}{}", key.minimum, key.maximum, gap);
            },
            [](const DoubleKey& key) { return fmt::format("a number from {} to {}", key.minimum, key.maximum); },
            [](const TextKey& key) -> std::string {
                return key.rule == TextRule::absolute_path ? "a path that starts with /" : "one line of text in UTF-8";
            },
            [](const TextListKey&) -> std::string { return "one line of texts in UTF-8, separated by commas"; },
            [](const ColorKey&) -> std::string { return "a colour as #rrggbb or #rrggbbaa"; },
            [](const FontKey&) -> std::string { return "a font as family, comma, size in points up to 1000"; },
        },
        setting);
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
    using Text = std::optional<std::string>;
    return std::visit(Overloaded{
                          [](const BooleanKey& key) -> Text { return text_from_bool(key.fallback); },
                          [](const IntegerKey& key) -> Text { return text_from_integer(key.fallback); },
                          [](const DoubleKey& key) { return text_from_double(key.fallback); },
                          [](const TextKey& key) -> Text { return std::string(key.fallback); },
                          [](const TextListKey&) -> Text { return std::string{}; },
                          [](const ColorKey& key) { return text_from_color(key.fallback); },
                          [](const FontKey&) -> Text { return std::nullopt; },
                      },
                      setting);
}

std::optional<std::string> current_text(const DefaultSettings& settings, const SettingKey& setting) {
    using Text = std::optional<std::string>;
    return std::visit(Overloaded{
                          [&](const BooleanKey& key) -> Text { return text_from_bool(load(settings, key)); },
                          [&](const IntegerKey& key) -> Text { return text_from_integer(load(settings, key)); },
                          [&](const DoubleKey& key) { return text_from_double(load(settings, key)); },
                          [&](const TextKey& key) -> Text { return load(settings, key); },
                          [&](const TextListKey& key) -> Text { return joined(load(settings, key)); },
                          [&](const ColorKey& key) { return text_from_color(load(settings, key)); },
                          [&](const FontKey& key) { return text_from_font(load(settings, key)); },
                      },
                      setting);
}

int check_setting(const SettingKey& setting, std::string_view text, std::vector<std::string>& value,
                  std::string& reason) {
    auto normal = std::visit([&](const auto& key) { return wanted(key, text); }, setting);
    if (!normal) {
        reason = fmt::format("{} takes {}.", key_of(setting), wish(setting));
        return -1;
    }
    value = std::holds_alternative<TextListKey>(setting) ? split(*normal) : std::vector{std::move(*normal)};
    return 0;
}

bool load(const DefaultSettings& settings, const BooleanKey& key) {
    return settings.loadBool(key.key, key.fallback);
}

std::int64_t load(const DefaultSettings& settings, const IntegerKey& key) {
    const auto stored = settings.loadInteger(key.key, key.fallback);
    if (key.limit == Limit::when_set)
        return stored;
    return stored == key.gap ? key.fallback : std::clamp(stored, key.minimum, key.maximum);
}

double load(const DefaultSettings& settings, const DoubleKey& key) {
    const double stored = settings.loadDouble(key.key, key.fallback);
    return key.limit == Limit::when_set ? stored : std::clamp(stored, key.minimum, key.maximum);
}

std::string load(const DefaultSettings& settings, const TextKey& key) {
    auto stored = settings.loadString(key.key, std::string(key.fallback));
    return key.rule == TextRule::trimmed ? std::string(trimmed(stored)) : stored;
}

std::vector<std::string> load(const DefaultSettings& settings, const TextListKey& key) {
    return settings.loadStringArray(key.key);
}

Color load(const DefaultSettings& settings, const ColorKey& key) {
    return settings.loadColor(key.key, key.fallback);
}

Font load(const DefaultSettings& settings, const FontKey& key) {
    return settings.loadFont(key.key, {});
}

void save(DefaultSettings& settings, const BooleanKey& key, bool value) {
    settings.saveBool(key.key, value);
}

void save(DefaultSettings& settings, const IntegerKey& key, std::int64_t value) {
    settings.saveInteger(key.key, value);
}

void save(DefaultSettings& settings, const DoubleKey& key, double value) {
    settings.saveDouble(key.key, value);
}

void save(DefaultSettings& settings, const TextKey& key, const std::string& value) {
    settings.saveString(key.key, key.rule == TextRule::trimmed ? std::string(trimmed(value)) : value);
}

void save(DefaultSettings& settings, const TextListKey& key, const std::vector<std::string>& value) {
    settings.saveStringArray(key.key, value);
}

void save(DefaultSettings& settings, const ColorKey& key, Color value) {
    settings.saveColor(key.key, value);
}

void save(DefaultSettings& settings, const FontKey& key, const Font& value) {
    settings.saveFont(key.key, value);
}

} // namespace tickervantage
