// What root-owned files may say when they come from an ordinary user: content is a privilege too.
//
// A service definition makes a program run as root, so it must be word for word what the program itself would write. A
// configuration makes chronyd, which starts as root, read and write the files that it names. Sources: chrony.conf(5),
// and how chronyd 4.3 divides a file into lines.
#pragma once

#include "base/failure.h"
#include "roothelper/grammar/helper_rules.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// A failure where the text is not the definition that belongs at this path.
[[nodiscard]] Result<> check_service_definition(const std::string& path, std::string_view text,
                                                const HelperRules& rules);

struct ConfigurationLine {
    int number = 0; // counted from 1
    std::string text;
};

// The lines that give chronyd more than its own folders and its own user, leaving out those that the installed
// configuration says already. A failure where chronyd would read other lines than we do, or where such a line holds
// what no question can show (see helper_question.h).
[[nodiscard]] Result<std::vector<ConfigurationLine>>
find_unsafe_lines(std::string_view text, std::string_view installed, const HelperRules& rules);

// The words of a line as chronyd divides it, the directive's name in lower case.
using DirectiveWords = std::vector<std::string>;

struct Directive {
    int number = 0; // of its line, counted from 1
    DirectiveWords words;
};

// Every line that is neither blank nor a comment.
[[nodiscard]] std::vector<Directive> directives_in(std::string_view text);

// Why chronyd refuses the text at `path`, out of what it wrote to its standard error. Nothing of the files that the
// text includes is passed on but the place of a fault.
[[nodiscard]] Failure chronyd_refusal(std::string_view errors, std::string_view path, std::string_view text);

// The user that a configuration gives the daemon; empty where it names none.
[[nodiscard]] std::string configured_daemon_user(std::string_view text);

} // namespace tickervantage
