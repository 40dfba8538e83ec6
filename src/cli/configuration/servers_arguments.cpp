#include "cli/configuration/servers_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

void add_servers_options(CLI::App& command, ServersArguments& arguments, bool& json) {
    command.add_option("FILE", arguments.file, "a server list; default: the one of the desktop program");
    auto* as_json = command.add_flag("--json", json, "one JSON document");
    command.add_flag("--as-config", arguments.as_config, "as lines of chrony's configuration")->excludes(as_json);
}

} // namespace tickervantage
