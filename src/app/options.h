// The command line of the desktop program.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct ProgramOptions {
    bool demo = false;              // show a demonstration daemon of the program's own
    std::vector<std::string> files; // finished tracking logs and configurations to open
    std::string screenshots;        // a folder: write pictures of the windows there, then end
};

// None: nothing is left to do, and `exit_status` says how to end.
[[nodiscard]] std::optional<ProgramOptions> read_options(int argc, char** argv, int& exit_status);

} // namespace tickervantage
