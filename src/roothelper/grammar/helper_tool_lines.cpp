#include "roothelper/grammar/helper_grammar.h"

#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tickervantage::helper_grammar {
namespace {

constexpr double longest_step = 4e9; // seconds: farther than any clock is off

constexpr std::string_view source_refused = "The file to be installed must be named by a plain absolute path.";
constexpr std::string_view destination_refused = "Nothing may be installed there.";

bool item_line(HelperVerb verb, const Words& words, Parser& parser) {
    if (!are(words, 2, "qqqq"))
        return parser.refuse("Installing takes four arguments in quotes.");
    const auto& [source, destination] = std::pair(words[2].text, words[3].text);
    if (!is_plain_path(source))
        return parser.refuse(source_refused);
    if (!find_item(parser.rules, destination, parser.request.item))
        return parser.refuse(destination_refused);
    const auto kind = parser.request.item.kind;
    const bool is_run = kind == ItemKind::program || kind == ItemKind::script;
    if (words[4].text != "root:wheel" || words[5].text != (is_run ? "0755" : "0644"))
        return parser.refuse("What is installed there has another owner or mode.");
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
        return parser.refuse("Removing takes one path in quotes.");
    const auto& path = words[2].text;
    const bool is_item = find_item(parser.rules, path, item) && item.kind != ItemKind::configuration;
    if (!is_plain_path(path) || !(is_item || is_removable_definition(path) || is_command_socket(path)))
        return parser.refuse("Nothing may be removed there.");
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
    constexpr std::string_view refused = "No folder may be made there.";
    if (are(words, 2, "qq") && words[2].text.empty())
        return is_item_folder(parser.rules, words[3].text) ? parser.accept_tool(HelperVerb::create_directory, words)
                                                           : parser.refuse(refused);
    if (are(words, 2, "u") && is_daemon_folder(parser.rules, words[2].text))
        return parser.accept_tool(HelperVerb::create_directory, words);
    return parser.refuse(refused);
}

bool add_user(const Words& words, Parser& parser) {
    if (!are(words, 2, "u") || std::ranges::find(daemon_users, words[2].text) == daemon_users.end())
        return parser.refuse("The helper adds only the users _chrony, chrony and ntp.");
    return parser.accept_tool(HelperVerb::add_user, words);
}

bool restore_former(const Words& words, Parser& parser) {
    Item item;
    if (!are(words, 2, "q") || !find_item(parser.rules, words[2].text, item) || item.kind != ItemKind::configuration)
        return parser.refuse("Only a configuration has a former one.");
    parser.request.destination = words[2].text;
    return parser.accept_tool(HelperVerb::restore_former, words);
}

bool step_time(const Words& words, Parser& parser) {
    double offset = 0;
    if (!are(words, 2, "u") || !read_number(words[2].text, offset) || !std::isfinite(offset) || offset == 0 ||
        std::abs(offset) > longest_step)
        return parser.refuse("The clock is stepped by a number of seconds other than 0.");
    return parser.accept_tool(HelperVerb::step_time, words);
}

bool rotate_logs(const Words& words, Parser& parser) {
    Item item;
    constexpr std::string_view refused = "Logs are rotated by the installed script in chrony's log folder.";
    if (words.size() != 4 || words[2].is_quoted != words[3].is_quoted)
        return parser.refuse(refused);
    if (!find_item(parser.rules, words[2].text, item) || item.kind != ItemKind::script ||
        !is_daemon_folder(parser.rules, words[3].text))
        return parser.refuse(refused);
    return parser.accept_tool(HelperVerb::rotate_logs, words);
}

bool adjust_clock(const Words& words, Parser& parser) {
    if (!are(words, 2, "u") || (words[2].text != "on" && words[2].text != "off"))
        return parser.refuse("Adjusting the clock is switched on or off.");
    return parser.accept_tool(HelperVerb::adjust_clock, words);
}

bool bare_verb(HelperVerb verb, const Words& words, Parser& parser) {
    return words.size() == 2 ? parser.accept_tool(verb, words) : parser.refuse("This verb takes no arguments.");
}

} // namespace

bool is_daemon_folder(const HelperRules& rules, std::string_view folder) {
    return is_plain_path(folder) && holds_path(rules.log_folders, without_spare_slashes(folder));
}

bool tool_line(const Words& words, Parser& parser) {
    const auto& tool = words[0].text;
    if (tool != parser.rules.tool() && !holds_path(parser.rules.tools, tool))
        return parser.refuse("This is not the support tool that the helper was installed with.");
    if (words.size() < 2 || words[1].is_quoted)
        return parser.refuse("The support tool needs a verb.");
    using Handler = bool (*)(const Words&, Parser&);
    constexpr std::array<std::pair<std::string_view, Handler>, 9> handlers{{{"installitem", install_item},
                                                                            {"checkitem", check_item},
                                                                            {"removeitem", remove_item},
                                                                            {"createdirectory", create_directory},
                                                                            {"adduser", add_user},
                                                                            {"steptime", step_time},
                                                                            {"rotatelogs", rotate_logs},
                                                                            {"restoreformer", restore_former},
                                                                            {"adjustclock", adjust_clock}}};
    constexpr std::array<std::pair<std::string_view, HelperVerb>, 9> bare{
        {{"stopchrony", HelperVerb::stop_chrony},
         {"guardchrony", HelperVerb::guard_chrony},
         {"resumechrony", HelperVerb::resume_chrony},
         {"startchrony", HelperVerb::start_chrony},
         {"stopwake", HelperVerb::stop_wake},
         {"displaceservices", HelperVerb::displace_services},
         {"restoreservices", HelperVerb::restore_services},
         {"openlogs", HelperVerb::open_logs},
         {"startwake", HelperVerb::start_wake}}};
    for (const auto& [name, handler] : handlers)
        if (words[1].text == name)
            return handler(words, parser);
    for (const auto& [name, verb] : bare)
        if (words[1].text == name)
            return bare_verb(verb, words, parser);
    return parser.refuse("The support tool has no such verb.");
}

} // namespace tickervantage::helper_grammar
