// The parts of the request grammar: each takes one kind of line, and either fills the parser's request or says why not.
// Only for helper_request.cpp and its siblings.
#pragma once

#include "base/failure_codes.h"
#include "roothelper/grammar/helper_request.h"
#include "roothelper/grammar/helper_words.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tickervantage::helper_grammar {

using Words = std::vector<CommandWord>;

struct Parser {
    const HelperRules& rules;
    HelperRequest request;
    FailureCode why = FailureCode::command_not_admitted; // of the refusal

    bool refuse(FailureCode reason) {
        why = reason;
        return false;
    }
    bool accept(HelperVerb verb, std::vector<std::string> argv) {
        request.verb = verb;
        request.argv = std::move(argv);
        return true;
    }
    bool accept_tool(HelperVerb verb, const Words& words) {
        std::vector<std::string> argv{rules.tool()};
        for (std::size_t at = 1; at < words.size(); ++at)
            argv.push_back(words[at].text);
        return accept(verb, std::move(argv));
    }
};

// Words that stand as they are ('u') or in quotes ('q'), from this one to the last.
inline bool are(const Words& words, std::size_t from, std::string_view quoted) {
    if (words.size() != from + quoted.size())
        return false;
    for (std::size_t at = 0; at < quoted.size(); ++at)
        if (words[from + at].is_quoted != (quoted[at] == 'q'))
            return false;
    return true;
}

// A folder that the daemon writes in.
[[nodiscard]] bool is_daemon_folder(const HelperRules& rules, std::string_view folder);

// The line's words: the first is the support tool in quotes.
[[nodiscard]] bool tool_line(const Words& words, Parser& parser);

// What stands between the single quotes of a shell's line.
[[nodiscard]] bool shell_line(std::string_view inside, Parser& parser);

// A line whose first word is a program.
[[nodiscard]] bool plain_line(const Words& words, Parser& parser);

} // namespace tickervantage::helper_grammar
