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
            return parser.refuse(FailureCode::no_shell_line);
        line.remove_suffix(shell_end.size());
        return shell_line(line, parser);
    }
    Words words;
    if (split_command_line(line, words) != 0 || words.empty())
        return parser.refuse(FailureCode::words_not_divided);
    return words[0].is_quoted ? tool_line(words, parser) : plain_line(words, parser);
}

bool whole_line(std::string_view line, Parser& parser) {
    if (line.size() > helper::request_limit)
        return parser.refuse(FailureCode::request_too_long);
    if (!is_printable(line))
        return parser.refuse(FailureCode::request_unprintable);
    if (line == "QUIT")
        return parser.accept(HelperVerb::quit, {});
    if (!line.starts_with(execute))
        return parser.refuse(FailureCode::no_request);
    return command_line(line.substr(execute.size()), parser);
}

} // namespace

std::string_view helper_verb_name(HelperVerb verb) {
    constexpr std::array<std::string_view, 29> names{"quit",
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
                                                     "resume_chrony",
                                                     "use_sensor",
                                                     "check_sensor",
                                                     "drop_sensor"};
    return names.at(static_cast<std::size_t>(verb));
}

Result<HelperRequest> parse_helper_request(std::string_view line, const HelperRules& rules) {
    Parser parser{rules, {}};
    if (!whole_line(line, parser))
        return failed(parser.why);
    return std::move(parser.request);
}

} // namespace tickervantage
