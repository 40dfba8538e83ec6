// The question that a person answers before a configuration with unsafe lines is installed.
//
// A configuration comes from an ordinary user, and the question passes through polkitd, which expands "$(", and through
// agents, which may take "<" and "&" for markup and obey characters that turn or divide lines. So a line is asked about
// only when it is made of signs that mean nothing to any of them, and when all of it can be seen.
#pragma once

#include "roothelper/grammar/helper_content.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Whether the line is made of ASCII letters, digits, blanks and the signs that paths, hosts and numbers need.
[[nodiscard]] bool is_plain_line(std::string_view line);

// With every line whole.
[[nodiscard]] Result<std::string> question_about(const std::vector<ConfigurationLine>& lines);

} // namespace tickervantage
