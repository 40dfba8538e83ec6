// The command line of `tickerctl servers`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace tickervantage {

struct ServersArguments {
    std::optional<std::string> file; // none: the user's own list
    bool as_config = false;
};

void add_servers_options(CLI::App& command, ServersArguments& arguments, bool& json);

} // namespace tickervantage
