// The command lines of `tickerctl config` and `tickerctl check`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace tickervantage {

struct ConfigArguments {
    std::string file;
    std::optional<std::string> directive; // none: all of them
};

void add_config_options(CLI::App& command, ConfigArguments& arguments, bool& json);
void add_check_options(CLI::App& command, ConfigArguments& arguments, bool& json);

} // namespace tickervantage
