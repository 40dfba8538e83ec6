#include "roothelper/grammar/helper_grammar.h"

#include "base/number_text.h"
#include "chrony/services/compensation_sensor.h"
#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage::helper_grammar {
namespace {

constexpr double longest_step = 4e9; // seconds: farther than any clock is off

bool item_line(HelperVerb verb, const Words& words, Parser& parser) {
    if (!are(words, 2, "qqqq"))
        return parser.refuse(FailureCode::install_takes_four);
    const auto& [source, destination] = std::pair(words[2].text, words[3].text);
    if (!is_plain_path(source))
        return parser.refuse(FailureCode::no_plain_source);
    if (!find_item(parser.rules, destination, parser.request.item))
        return parser.refuse(FailureCode::no_installation_there);
    const auto kind = parser.request.item.kind;
    const bool is_run = kind == ItemKind::program || kind == ItemKind::script;
    if (words[4].text != "root:wheel" || words[5].text != (is_run ? "0755" : "0644"))
        return parser.refuse(FailureCode::other_owner_or_mode);
    parser.request.source = source;
    parser.request.destination = destination;
    return parser.accept_tool(verb, words);
}

bool install_item(const Words& words, Parser& parser) {
    return item_line(HelperVerb::install_item, words, parser);
}

bool check_item(const Words& words, Parser& parser) {
    return item_line(HelperVerb::check_item, words, parser);
}

bool is_command_socket(std::string_view path) {
    for (const std::string_view folder : {"/run/chrony/", "/var/run/chrony/"}) {
        if (!path.starts_with(folder))
            continue;
        const auto name = path.substr(folder.size());
        return name.find('/') == std::string_view::npos && name.ends_with(".sock");
    }
    return false;
}

bool remove_item(const Words& words, Parser& parser) {
    Item item;
    if (!are(words, 2, "q"))
        return parser.refuse(FailureCode::remove_takes_one);
    const auto& path = words[2].text;
    const bool is_item = find_item(parser.rules, path, item) && item.kind != ItemKind::configuration;
    if (!is_plain_path(path) || !(is_item || is_removable_definition(path) || is_command_socket(path)))
        return parser.refuse(FailureCode::no_removal_there);
    return parser.accept_tool(HelperVerb::remove_item, words);
}

// The folder that one of the things that may be installed lies in.
bool is_item_folder(const HelperRules& rules, std::string_view folder) {
    const auto lies_in = [folder](std::string_view path) {
        return path.substr(0, path.rfind('/')) == folder;
    };
    const auto any = [&lies_in](const auto& paths) {
        return std::ranges::any_of(paths, lies_in);
    };
    return any(rules.chronyc) || any(rules.chronyd) || any(rules.chronywake) || any(rules.configurations) ||
           any(installable_definitions());
}

bool create_directory(const Words& words, Parser& parser) {
    if (are(words, 2, "qq") && words[2].text.empty())
        return is_item_folder(parser.rules, words[3].text) ? parser.accept_tool(HelperVerb::create_directory, words)
                                                           : parser.refuse(FailureCode::no_folder_there);
    if (are(words, 2, "u") && is_daemon_folder(parser.rules, words[2].text))
        return parser.accept_tool(HelperVerb::create_directory, words);
    return parser.refuse(FailureCode::no_folder_there);
}

bool add_user(const Words& words, Parser& parser) {
    if (!are(words, 2, "u") || std::ranges::find(daemon_users, words[2].text) == daemon_users.end())
        return parser.refuse(FailureCode::no_daemon_user);
    return parser.accept_tool(HelperVerb::add_user, words);
}

bool restore_former(const Words& words, Parser& parser) {
    Item& item = parser.request.item;
    if (!are(words, 2, "q") || !find_item(parser.rules, words[2].text, item) ||
        (item.kind != ItemKind::configuration && item.kind != ItemKind::compensation))
        return parser.refuse(FailureCode::nothing_former_there);
    parser.request.destination = words[2].text;
    return parser.accept_tool(HelperVerb::restore_former, words);
}

bool step_time(const Words& words, Parser& parser) {
    double offset = 0;
    if (!are(words, 2, "u") || !read_number(words[2].text, offset) || !std::isfinite(offset) || offset == 0 ||
        std::abs(offset) > longest_step)
        return parser.refuse(FailureCode::step_not_admitted);
    return parser.accept_tool(HelperVerb::step_time, words);
}

bool rotate_logs(const Words& words, Parser& parser) {
    Item item;
    if (words.size() != 4 || words[2].is_quoted != words[3].is_quoted)
        return parser.refuse(FailureCode::no_rotation_there);
    if (!find_item(parser.rules, words[2].text, item) || item.kind != ItemKind::script ||
        !is_daemon_folder(parser.rules, words[3].text))
        return parser.refuse(FailureCode::no_rotation_there);
    return parser.accept_tool(HelperVerb::rotate_logs, words);
}

bool adjust_clock(const Words& words, Parser& parser) {
    if (!are(words, 2, "u") || (words[2].text != "on" && words[2].text != "off"))
        return parser.refuse(FailureCode::clock_not_switched);
    return parser.accept_tool(HelperVerb::adjust_clock, words);
}

bool use_sensor(const Words& words, Parser& parser) {
    if (!are(words, 2, "qqq") || !is_plain_sensor({words[2].text, words[3].text, words[4].text}))
        return parser.refuse(FailureCode::no_plain_sensor);
    return parser.accept_tool(HelperVerb::use_sensor, words);
}

bool bare_verb(HelperVerb verb, const Words& words, Parser& parser) {
    return words.size() == 2 ? parser.accept_tool(verb, words) : parser.refuse(FailureCode::verb_takes_none);
}

} // namespace

bool is_daemon_folder(const HelperRules& rules, std::string_view folder) {
    return is_plain_path(folder) && holds_path(rules.log_folders, without_spare_slashes(folder));
}

bool tool_line(const Words& words, Parser& parser) {
    const auto& tool = words[0].text;
    if (tool != parser.rules.tool() && !holds_path(parser.rules.tools, tool))
        return parser.refuse(FailureCode::other_tool);
    if (words.size() < 2 || words[1].is_quoted)
        return parser.refuse(FailureCode::verb_missing);
    using Handler = bool (*)(const Words&, Parser&);
    constexpr std::array<std::pair<std::string_view, Handler>, 10> handlers{{{"installitem", install_item},
                                                                             {"checkitem", check_item},
                                                                             {"removeitem", remove_item},
                                                                             {"createdirectory", create_directory},
                                                                             {"adduser", add_user},
                                                                             {"steptime", step_time},
                                                                             {"rotatelogs", rotate_logs},
                                                                             {"restoreformer", restore_former},
                                                                             {"adjustclock", adjust_clock},
                                                                             {"usesensor", use_sensor}}};
    constexpr std::array<std::pair<std::string_view, HelperVerb>, 11> bare{
        {{"stopchrony", HelperVerb::stop_chrony},
         {"guardchrony", HelperVerb::guard_chrony},
         {"resumechrony", HelperVerb::resume_chrony},
         {"startchrony", HelperVerb::start_chrony},
         {"stopwake", HelperVerb::stop_wake},
         {"displaceservices", HelperVerb::displace_services},
         {"restoreservices", HelperVerb::restore_services},
         {"openlogs", HelperVerb::open_logs},
         {"checksensor", HelperVerb::check_sensor},
         {"dropsensor", HelperVerb::drop_sensor},
         {"startwake", HelperVerb::start_wake}}};
    for (const auto& [name, handler] : handlers)
        if (words[1].text == name)
            return handler(words, parser);
    for (const auto& [name, verb] : bare)
        if (words[1].text == name)
            return bare_verb(verb, words, parser);
    return parser.refuse(FailureCode::verb_unknown);
}

} // namespace tickervantage::helper_grammar
