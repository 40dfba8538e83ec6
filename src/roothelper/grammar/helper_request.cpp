#include "roothelper/grammar/helper_request.h"

#include "roothelper/grammar/helper_grammar.h"
#include "roothelper/grammar/helper_names.h"

#include <array>

namespace tickervantage {
namespace {

using namespace helper_grammar;

constexpr std::string_view execute = "EXECUTE ";
constexpr std::string_view shell_start = "/bin/sh -c '";
constexpr std::string_view shell_end = "' 2>&1";

bool command_line(std::string_view line, Parser& parser) {
    if (line.starts_with(shell_start)) {
        line.remove_prefix(shell_start.size());
        if (!line.ends_with(shell_end) || line.find('\'') != line.size() - shell_end.size())
            return parser.refuse("A shell's line must be one command in single quotes, with its errors joined.");
        line.remove_suffix(shell_end.size());
        return shell_line(line, parser);
    }
    Words words;
    if (split_command_line(line, words) != 0 || words.empty())
        return parser.refuse("The words of the command are not divided as they should be.");
    return words[0].is_quoted ? tool_line(words, parser) : plain_line(words, parser);
}

bool whole_line(std::string_view line, Parser& parser) {
    if (line.size() > helper::request_limit)
        return parser.refuse("The request is too long.");
    if (!is_printable(line))
        return parser.refuse("The request holds characters that cannot be printed.");
    if (line == "QUIT")
        return parser.accept(HelperVerb::quit, {});
    if (!line.starts_with(execute))
        return parser.refuse("A request is EXECUTE with a command, or QUIT.");
    return command_line(line.substr(execute.size()), parser);
}

} // namespace

std::string_view helper_verb_name(HelperVerb verb) {
    constexpr std::array<std::string_view, 26> names{"quit",
                                                     "chronyc_report",
                                                     "synchronise",
                                                     "run_chronywake",
                                                     "list_daemons",
                                                     "install_item",
                                                     "remove_item",
                                                     "create_directory",
                                                     "add_user",
                                                     "step_time",
                                                     "stop_chrony",
                                                     "start_chrony",
                                                     "stop_wake",
                                                     "start_wake",
                                                     "rotate_logs",
                                                     "service_manager",
                                                     "remove_definition",
                                                     "make_readable",
                                                     "restore_former",
                                                     "displace_services",
                                                     "restore_services",
                                                     "adjust_clock",
                                                     "open_logs",
                                                     "check_item",
                                                     "guard_chrony",
                                                     "resume_chrony"};
    return names.at(static_cast<std::size_t>(verb));
}

int parse_helper_request(std::string_view line, const HelperRules& rules, HelperRequest& request,
                         std::string& sentence) {
    Parser parser{rules, {}};
    if (!whole_line(line, parser)) {
        sentence = parser.why;
        return -1;
    }
    request = std::move(parser.request);
    return 0;
}

} // namespace tickervantage
