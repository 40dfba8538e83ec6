#include "roothelper/grammar/helper_grammar.h"

#include "base/number_text.h"
#include "roothelper/grammar/helper_names.h"

#include <algorithm>
#include <iterator>

namespace tickervantage::helper_grammar {
namespace {

constexpr int longest_synchronisation = 120;

bool take(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start))
        return false;
    text.remove_prefix(start.size());
    return true;
}

// Adds the report's words. False when it is none of those that need root.
bool add_report(std::string_view text, std::vector<std::string>& argv) {
    for (const std::string_view report :
         {"authdata -a", "authdata", "ntpdata", "selectdata", "clients", "serverstats"}) {
        if (text == report) {
            const auto blank = report.find(' ');
            argv.emplace_back(report.substr(0, blank));
            if (blank != std::string_view::npos)
                argv.emplace_back(report.substr(blank + 1));
            return true;
        }
    }
    if (!take(text, "ntpdata ") || !is_host_name(text))
        return false;
    argv.insert(argv.end(), {"ntpdata", std::string(text)});
    return true;
}

bool report_line(std::string_view text, const std::string& chronyc, Parser& parser) {
    std::vector<std::string> argv{chronyc};
    if (Words words; text == helper::data_reports && split_command_line(text.substr(1), words) == 0) {
        std::ranges::transform(words, std::back_inserter(argv), &CommandWord::text);
        return parser.accept(HelperVerb::chronyc_report, std::move(argv));
    }
    if (take(text, " -n "))
        argv.emplace_back("-n");
    if (take(text, " -N"))
        argv.emplace_back("-N");
    if (!take(text, " ") || !add_report(text, argv))
        return parser.refuse(FailureCode::no_report);
    return parser.accept(HelperVerb::chronyc_report, std::move(argv));
}

// The words of a "server" directive: chronyd takes them as one line.
bool is_server_directive(std::string_view text) {
    constexpr std::string_view iburst = " iburst";
    if (!take(text, "server ") || !text.ends_with(iburst))
        return false;
    text.remove_suffix(iburst.size());
    std::size_t from = 0;
    while (from <= text.size()) {
        const auto end = std::min(text.find(' ', from), text.size());
        if (!is_host_name(text.substr(from, end - from)))
            return false;
        from = end + 1;
    }
    return true;
}

bool synchronise_line(std::string_view text, const std::string& chronyd, Parser& parser) {
    Words words;
    int seconds = 0;
    const bool is_shaped = take(text, " ") && split_command_line(text, words) == 0 && are(words, 0, "uuuq") &&
                           words[0].text == "-t" && words[2].text == "-q" && is_server_directive(words[3].text);
    if (!is_shaped || !read_number(words[1].text, seconds) || seconds < 1 || seconds > longest_synchronisation)
        return parser.refuse(FailureCode::no_synchronisation);
    return parser.accept(HelperVerb::synchronise, {chronyd, "-t", std::to_string(seconds), "-q", words[3].text});
}

} // namespace

bool shell_line(std::string_view inside, Parser& parser) {
    for (const auto& path : parser.rules.chronyc)
        if (inside.starts_with(path + ' '))
            return report_line(inside.substr(path.size()), path, parser);
    for (const auto& path : parser.rules.chronyd)
        if (inside.starts_with(path + ' '))
            return synchronise_line(inside.substr(path.size()), path, parser);
    return parser.refuse(FailureCode::program_not_listed);
}

} // namespace tickervantage::helper_grammar
