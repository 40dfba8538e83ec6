#include "cli/configuration/config_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

void add_config_options(CLI::App& command, ConfigArguments& arguments, bool& json) {
    command.add_option("FILE", arguments.file, "a configuration, such as /etc/chrony/chrony.conf")->required();
    command.add_option("DIRECTIVE", arguments.directive, "only this one's value, such as logdir");
    command.add_flag("--json", json, "one JSON document");
}

void add_check_options(CLI::App& command, ConfigArguments& arguments, bool& json) {
    command.add_option("FILE", arguments.file, "a configuration, such as /etc/chrony/chrony.conf")->required();
    command.add_flag("--json", json, "one JSON document");
}

} // namespace tickervantage
