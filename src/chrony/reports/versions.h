// What chronyc and chronyd say of their versions.
#pragma once

#include "base/execute.h"

#include <string>

namespace tickervantage {

struct ProgramVersion {
    std::string text;               // the full output
    std::string label;              // its first four words; empty when the program could not be asked
    std::optional<Failure> failure; // why it could not be asked
    bool meaningless = false;       // the program is there, ended by itself, and said fewer than four words
};

[[nodiscard]] ProgramVersion read_version(const ExecuteResult& answer);

// chronyc 3.5 has no option that shows sources by the names of the configuration.
[[nodiscard]] bool knows_original_names(const std::string& chronyc_label);

// The text behind the command "version".
[[nodiscard]] std::string version_text(const std::string& chronyd_text, const std::string& chronyc_text);

} // namespace tickervantage
