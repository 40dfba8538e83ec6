#include "cli/history/history_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

void add_history_options(CLI::App& command, HistoryArguments& arguments) {
    command.add_option("--from", arguments.from, "not before 2026-11-22T01:30:00Z, or a day (UTC)");
    command.add_option("--to", arguments.to, "before then");
    command.add_option("--file", arguments.file, "a history; default: the one of the desktop program");
}

void add_sample_options(CLI::App& command, HistoryArguments& arguments) {
    command.add_option("--every", arguments.every_seconds, "seconds between two readings")
        ->capture_default_str()
        ->check(CLI::Range(1.0, 86400.0).description("give seconds, from 1 to 86400"));
    command.add_option("--file", arguments.file, "a history; default: the one of the desktop program");
}

} // namespace tickervantage
