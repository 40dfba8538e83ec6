#include "roothelper/grammar/helper_rules.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::string_view distribution = "/usr/";
constexpr std::string_view local = "/usr/local/";

std::vector<std::string>* paths_of(HelperRules& rules, std::string_view word) {
    if (word == "tool")
        return &rules.tools;
    if (word == "chronyc")
        return &rules.chronyc;
    if (word == "chronyd")
        return &rules.chronyd;
    if (word == "chronywake")
        return &rules.chronywake;
    if (word == "configuration")
        return &rules.configurations;
    return word == "log-folder" ? &rules.log_folders : nullptr;
}

bool set_idle(std::string_view value, HelperRules& rules) {
    unsigned seconds = 0;
    if (!read_number(value, seconds) || seconds == 0 || seconds > 86'400)
        return false;
    rules.idle = std::chrono::seconds(seconds);
    return true;
}

Result<> add_rule(std::string_view line, std::size_t number, HelperRules& rules) {
    const auto refused = [number](FailureCode why) {
        return failed(why, {std::to_string(number)});
    };
    const auto word = line.substr(0, line.find_first_of(" \t\r"));
    const auto value = trimmed(line.substr(word.size()));
    if (word == "idle-seconds")
        return set_idle(value, rules) ? Result<>() : refused(FailureCode::rule_needs_seconds);
    auto* paths = paths_of(rules, word);
    if (paths == nullptr && word != "bundle")
        return refused(FailureCode::rule_unknown);
    if (!is_plain_path(value))
        return refused(FailureCode::rule_needs_path);
    if (paths != nullptr)
        paths->push_back(without_spare_slashes(value));
    else
        rules.bundle = without_spare_slashes(value);
    return {};
}

// What the distribution's packages own is used, but never replaced or removed.
bool is_ours(std::string_view path) {
    return !path.starts_with(distribution) || path.starts_with(local);
}

std::string beside(const std::string& path, std::string_view name) {
    return path.substr(0, path.rfind('/') + 1) + std::string(name);
}

bool is_program(const std::vector<std::string>& paths, std::string_view destination, std::string_view name,
                Item& item) {
    if (!holds_path(paths, destination))
        return false;
    item = {ItemKind::program, std::string(name)};
    return true;
}

bool is_script(const HelperRules& rules, std::string_view destination, Item& item) {
    for (const auto& path : rules.chronyc) {
        if (beside(path, rotation_script_name) != destination)
            continue;
        item = {ItemKind::script, std::string(rotation_script_name)};
        return true;
    }
    return false;
}

bool is_definition(std::string_view destination, Item& item) {
    for (const auto& path : installable_definitions()) {
        if (path != destination)
            continue;
        item = {ItemKind::service_definition, path};
        return true;
    }
    return false;
}

bool is_configuration(const HelperRules& rules, std::string_view destination, Item& item) {
    if (!holds_path(rules.configurations, destination))
        return false;
    item = {ItemKind::configuration, "chrony.conf"};
    return true;
}

bool is_compensation(std::string_view destination, Item& item) {
    if (destination != compensation_points_path)
        return false;
    item = {ItemKind::compensation, {}};
    return true;
}

} // namespace

bool is_plain_path(std::string_view path) {
    if (path.size() < 2 || path.front() != '/')
        return false;
    for (std::size_t at = 1; at < path.size();) {
        const auto end = std::min(path.find('/', at), path.size());
        const auto part = path.substr(at, end - at);
        if (part == "." || part == "..")
            return false;
        at = end + 1;
    }
    return without_spare_slashes(path).size() > 1;
}

std::string without_spare_slashes(std::string_view path) {
    std::string result;
    for (const char letter : path)
        if (letter != '/' || result.empty() || result.back() != '/')
            result.push_back(letter);
    if (result.size() > 1 && result.back() == '/')
        result.pop_back();
    return result;
}

bool holds_path(const std::vector<std::string>& paths, std::string_view path) {
    return std::ranges::find(paths, path) != paths.end();
}

Result<> add_rules(std::string_view text, HelperRules& rules) {
    HelperRules changed = rules;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == '#')
            continue;
        if (auto added = add_rule(line, number, changed); !added)
            return added;
    }
    rules = std::move(changed);
    return {};
}

bool find_item(const HelperRules& rules, std::string_view destination, Item& item) {
    if (!is_ours(destination))
        return false;
    return is_program(rules.chronyc, destination, "chronyc", item) ||
           is_program(rules.chronyd, destination, "chronyd", item) ||
           is_program(rules.chronywake, destination, "chronywake", item) || is_script(rules, destination, item) ||
           is_configuration(rules, destination, item) || is_definition(destination, item) ||
           is_compensation(destination, item);
}

} // namespace tickervantage
