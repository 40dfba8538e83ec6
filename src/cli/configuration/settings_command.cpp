#include "cli/configuration/settings_command.h"

#include "cli/terminal.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tickervantage {

namespace {

using Json = nlohmann::ordered_json;

constexpr int done = 0;

std::string quoted(std::string_view typed) {
    constexpr std::size_t longest = 60;
    return "\"" + one_line(std::string(typed.substr(0, longest))) + (typed.size() > longest ? "...\"" : "\"");
}

int fail(std::ostream& err, std::string_view sentence) {
    err << "tickerctl: " << sentence << '\n';
    return has_failed;
}

int saved(const Result<>& finished, std::ostream& err) {
    return finished ? done : fail(err, english(finished.error()));
}

int unknown_key(std::ostream& err, std::string_view key) {
    return fail(err, fmt::format("There is no setting {}; \"tickerctl settings list\" names them all.", quoted(key)));
}

// Null where there is no value; colours and fonts as texts.
template <class Value>
Json json_of(const Value& value) {
    if constexpr (std::is_constructible_v<Json, Value>) {
        return value;
    } else {
        const auto text = text_of(value);
        return text ? Json(*text) : Json();
    }
}

Json json_value(const DefaultSettings& settings, const SettingKey& setting) {
    return std::visit([&](const auto& key) { return json_of(load(settings, key)); }, setting);
}

Json json_entry(const SettingsStore& store, const DefaultSettings& settings, const SettingKey& setting) {
    return {{"value", json_value(settings, setting)},
            {"default", std::visit([](const auto& key) { return json_of(default_of(key)); }, setting)},
            {"stored", store.read(key_of(setting)).has_value()},
            {"kind", kind_of(setting)},
            {"description", description_of(setting)}};
}

void print_json(std::ostream& out, const Json& document) {
    out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace

int SettingsCommand::list(OutputForm form) const {
    const DefaultSettings settings(store);
    Json document = Json::object();
    for (const auto& setting : all_settings()) {
        if (form == OutputForm::json) {
            document[std::string(key_of(setting))] = json_entry(store, settings, setting);
            continue;
        }
        const auto value = one_line(current_text(settings, setting).value_or(""));
        const auto standard = default_text(setting).value_or("");
        out << key_of(setting) << " = " << value;
        if (value != standard)
            out << "  (default: " << standard << ")";
        out << "  # " << description_of(setting) << '\n';
    }
    if (form == OutputForm::json)
        print_json(out, document);
    return done;
}

int SettingsCommand::get(std::string_view key, OutputForm form) const {
    const auto* const setting = find_setting(key);
    if (setting == nullptr)
        return unknown_key(err, key);
    const DefaultSettings settings(store);
    const auto text = current_text(settings, *setting);
    if (form == OutputForm::json)
        print_json(out, Json{{std::string(key), json_value(settings, *setting)}});
    else if (text)
        out << *text << '\n';
    return text ? done : answer_is_no;
}

int SettingsCommand::set(std::string_view key, std::string_view value) const {
    const auto* const setting = find_setting(key);
    if (setting == nullptr)
        return unknown_key(err, key);
    const auto normal = check_setting(*setting, value);
    if (!normal)
        return fail(err, fmt::format("{} Not {}.", english(normal.error()), quoted(value)));
    store.write(key, *normal);
    return saved(finish_saving(), err);
}

int SettingsCommand::reset() const {
    for (const auto& setting : all_settings())
        store.remove(key_of(setting));
    return saved(finish_saving(), err);
}

} // namespace tickervantage
