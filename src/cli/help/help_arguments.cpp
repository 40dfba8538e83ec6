#include "cli/help/help_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

void add_help_options(CLI::App& command, HelpArguments& arguments) {
    auto* topic = command.add_option("TOPIC", arguments.topic, "a page, such as faq or chrony.conf");
    command.add_option("--search", arguments.words, "the passages of all pages that hold these words")->excludes(topic);
}

} // namespace tickervantage
