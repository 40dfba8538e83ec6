// The syntax of a chrony.conf, checked by chronyd itself (its option -p), and then what chronyd reads only when it
// starts and may die of: the files of points of tempcomp.
//
// What chronyd says is searched for the words "Fatal error : " and " in file"; only what stands between them is an
// error. checkSyntax runs a program and waits for it: not on the main thread, and one at a time for each temporary
// folder, because its file always has the same name. chronyd needs no rights for this.
#pragma once

#include "base/execute.h"
#include "base/failure.h"
#include "base/user_files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct ConfigError {
    bool m_isok = true;
    std::string m_msg;                   // the error, from "Fatal error : " on; empty: none
    long long m_line = 0;                // counted from 1; 0: unknown
    std::string m_file = {};             // an included file that m_line counts in; empty: the text itself
    std::optional<Failure> m_doubt = {}; // why m_isok says less than it seems to, or m_msg as a record

    // What may be installed: no error was found, and nothing casts doubt on that.
    [[nodiscard]] bool passed() const { return m_isok && !m_doubt; }
};

// The message and line in chronyd's answer. No such words, or an answer that begins with them: message "", line 0. The
// line is the first number in the message, wherever it stands.
[[nodiscard]] ConfigError parse_check_answer(std::string_view answer);

struct SyntaxCheckParts {
    Execute& execute;
    // Paths of chronyd, the one to be asked first in front; empty: there is none. The others are asked when one is not
    // allowed to read the file: where AppArmor confines chronyd by its path, it reads only its own folders.
    std::function<std::vector<std::string>()> chronyds;
    Files& files;
    std::string temporary; // WITH a slash at its end
    std::chrono::milliseconds patience{10'000};
};

// Without a chronyd, or when it says nothing, the text passes.
[[nodiscard]] ConfigError checkSyntax(const SyntaxCheckParts& parts, std::string_view text);

// Programs of that name in the folders of a search path ("a:b"), then in those where system programs lie, which an
// ordinary user's path often lacks.
[[nodiscard]] std::vector<std::string> executables(const std::string& name, const std::string& search_path);

// The chronyds of this machine, and last the one at the path given, when it is there.
[[nodiscard]] std::vector<std::string> find_chronyds(const std::string& search_path, const std::string& bundled);

} // namespace tickervantage
