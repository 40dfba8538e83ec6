#include "roothelper/grammar/helper_content.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tickervantage {
namespace {

using Arguments = std::vector<std::string>;

std::string_view between(std::string_view text, std::string_view start, std::string_view end) {
    const auto from = text.find(start);
    if (from == std::string_view::npos)
        return {};
    text.remove_prefix(from + start.size());
    return text.substr(0, std::min(text.find(end), text.size()));
}

Arguments unit_arguments(std::string_view text) {
    Arguments arguments;
    auto line = between(text, "\nExecStart=", "\n");
    while (!line.empty()) {
        const auto end = std::min(line.find(' '), line.size());
        arguments.emplace_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return arguments;
}

Arguments property_list_arguments(std::string_view text) {
    constexpr std::string_view start = "<string>";
    constexpr std::string_view end = "</string>";
    Arguments arguments;
    auto array = between(text, "<key>ProgramArguments</key>", "</array>");
    for (auto at = array.find(start); at != std::string_view::npos; at = array.find(start)) {
        array.remove_prefix(at + start.size());
        const auto length = std::min(array.find(end), array.size());
        arguments.emplace_back(array.substr(0, length));
        array.remove_prefix(length);
    }
    return arguments;
}

std::optional<ServiceDescription> daemon_from(const Arguments& words, const HelperRules& rules) {
    const bool filters = words.size() > 5 && words[words.size() - 2] == "-F" && words.back() == "1";
    const bool forbids = words.size() > 4 && words[4] == "-x";
    if (words.size() != 4U + (forbids ? 1U : 0U) + (filters ? 2U : 0U) || !holds_path(rules.chronyd, words[0]) ||
        !holds_path(rules.configurations, words[3]))
        return std::nullopt;
    return daemon_service(words[0], words[3], !forbids, filters);
}

std::optional<ServiceDescription> rotation_from(const Arguments& words, const HelperRules& rules) {
    Item script;
    if (words.size() != 4 || !find_item(rules, words[1], script) || script.kind != ItemKind::script ||
        !holds_path(rules.chronyc, words[2]) || !is_plain_path(words[3]) ||
        !holds_path(rules.log_folders, without_spare_slashes(words[3])))
        return std::nullopt;
    return rotation_service(words[1], words[2], words[3]);
}

bool is_wake_value(std::string_view option, const std::string& value, const HelperRules& rules) {
    constexpr std::array<std::string_view, 4> numbers{"--make-thresh", "--make-limit", "--burst-good", "--burst-max"};
    if (std::ranges::find(numbers, option) != numbers.end())
        return number_from_text<double>(value).has_value();
    if (option == "--burst-netmask")
        return value.find_first_not_of("0123456789abcdefABCDEF.:/") == std::string::npos;
    return option == "--chronyc" && holds_path(rules.chronyc, value);
}

std::optional<ServiceDescription> wake_from(const Arguments& words, const HelperRules& rules) {
    if (words.empty() || words.size() % 2 == 0 || !holds_path(rules.chronywake, words[0]))
        return std::nullopt;
    for (std::size_t at = 1; at < words.size(); at += 2)
        if (!is_wake_value(words[at], words[at + 1], rules))
            return std::nullopt;
    return wake_service(words[0], Arguments(words.begin() + 1, words.end()));
}

// The definition that says what this text says, where such a one is allowed.
std::optional<ServiceDescription> rebuilt(const std::string& path, const Arguments& words, const HelperRules& rules) {
    if (path.find(daemon_label) != std::string::npos)
        return daemon_from(words, rules);
    if (path.find(wake_label) != std::string::npos)
        return wake_from(words, rules);
    return rotation_from(words, rules);
}

// A timer says nothing of the program that it starts.
ServiceDescription timer_owner() {
    return rotation_service("/usr/local/bin/chronylogrotate.sh", "/usr/local/bin/chronyc", "/var/log/chrony");
}

bool is_written_by_us(const std::string& path, std::string_view text, const HelperRules& rules) {
    const auto form = path.ends_with(".plist") ? ServiceForm::launchd : ServiceForm::systemd;
    const auto words = form == ServiceForm::launchd ? property_list_arguments(text) : unit_arguments(text);
    const auto service = path.ends_with(".timer") ? timer_owner() : rebuilt(path, words, rules);
    return service && std::ranges::any_of(definition_files(form, *service), [&](const DefinitionFile& file) {
               return file.path == path && file.text == text;
           });
}

} // namespace

Result<> check_service_definition(const std::string& path, std::string_view text, const HelperRules& rules) {
    return is_written_by_us(path, text, rules) ? Result<>() : failed(FailureCode::unlike_definition, {path});
}

} // namespace tickervantage
