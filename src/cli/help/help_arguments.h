// The command line of `tickerctl help`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace tickervantage {

struct HelpArguments {
    std::optional<std::string> topic; // none: the list of topics
    std::string words;                // to search all pages for; empty: no search
};

void add_help_options(CLI::App& command, HelpArguments& arguments);

} // namespace tickervantage
