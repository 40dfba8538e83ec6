#include "roothelper/grammar/helper_grammar.h"

#include "roothelper/grammar/helper_definitions.h"

#include <algorithm>

namespace tickervantage::helper_grammar {
namespace {

bool is_launchctl_line(const std::vector<std::string>& argv) {
    constexpr std::string_view system = "system/";
    if (argv.size() == 3)
        return argv[1] == "print" && argv[2].starts_with(system) && is_known_label(argv[2].substr(system.size()));
    return argv.size() == 4 && (argv[1] == "bootout" || argv[1] == "bootstrap") && argv[2] == "system" &&
           is_known_property_list(argv[3]);
}

bool is_systemctl_line(const std::vector<std::string>& argv) {
    const auto verb = argv.size() > 1 ? argv[1] : std::string();
    if (argv.size() == 2)
        return verb == "daemon-reload";
    if (argv.size() == 5)
        return verb == "status" && argv[2] == "--no-pager" && argv[3] == "--lines=20" &&
               (is_known_unit(argv[4]) || is_distribution_unit(argv[4]));
    const bool switches = verb == "enable" || verb == "disable";
    if (argv.size() == 4)
        return switches && argv[2] == "--now" && is_known_unit(argv[3]);
    const bool acts = verb == "start" || verb == "stop" || verb == "restart";
    const bool renews = verb == "try-restart";
    return argv.size() == 3 &&
           ((acts && is_distribution_unit(argv[2])) || ((acts || switches || renews) && is_known_unit(argv[2])));
}

bool service_manager_line(const Words& words, Parser& parser) {
    std::vector<std::string> argv;
    for (const auto& word : words)
        argv.push_back(word.text);
    if (argv[0] == "/bin/launchctl") {
        return is_launchctl_line(argv) ? parser.accept(HelperVerb::service_manager, std::move(argv))
                                       : parser.refuse(FailureCode::service_not_managed);
    }
    return is_systemctl_line(argv) ? parser.accept(HelperVerb::service_manager, std::move(argv))
                                   : parser.refuse(FailureCode::service_not_managed);
}

bool remove_line(const Words& words, Parser& parser) {
    if (words.size() != 3 || words[1].text != "-f" || !is_removable_definition(words[2].text))
        return parser.refuse(FailureCode::no_removal_there);
    return parser.accept(HelperVerb::remove_definition, {"/bin/rm", "-f", words[2].text});
}

// The tracking log, or the folder that it lies in: without the folder the log cannot be reached. Not where chronyd has
// its command socket: it wants that folder to itself.
bool chmod_line(const Words& words, Parser& parser) {
    constexpr std::string_view log = "/tracking.log";
    const std::string path = words.size() == 3 ? words[2].text : std::string();
    const auto folder = without_spare_slashes(path.ends_with(log) ? path.substr(0, path.size() - log.size()) : path);
    const bool holds_sockets = folder.starts_with("/run/") || folder.starts_with("/var/run/");
    if (words.size() != 3 || words[1].text != "0755" || holds_sockets || !is_daemon_folder(parser.rules, folder))
        return parser.refuse(FailureCode::no_tracking_log);
    return parser.accept(HelperVerb::make_readable, {"/bin/chmod", "0755", path});
}

} // namespace

bool plain_line(const Words& words, Parser& parser) {
    if (std::ranges::any_of(words, [](const auto& word) { return word.is_quoted; }))
        return parser.refuse(FailureCode::command_not_admitted);
    const auto& program = words[0].text;
    if (program == "/bin/launchctl" || program == "/bin/systemctl")
        return service_manager_line(words, parser);
    if (program == "rm")
        return remove_line(words, parser);
    if (program == "chmod")
        return chmod_line(words, parser);
    if (words.size() == 1 && holds_path(parser.rules.chronywake, program))
        return parser.accept(HelperVerb::run_chronywake, {program});
    if (words.size() == 4 && program == "/usr/bin/pgrep" && words[1].text == "-l" && words[2].text == "-f" &&
        words[3].text == "chronyd") // by the program's name: the word may stand in anybody's command line
        return parser.accept(HelperVerb::list_daemons, {program, "-a", "-x", "chronyd"});
    return parser.refuse(FailureCode::command_not_admitted);
}

} // namespace tickervantage::helper_grammar
