#include "cli/logs/log_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {
namespace {

void add_period(CLI::App& command, LogArguments& arguments) {
    command.add_option("--from", arguments.from, "not before 2026-11-22T01:30:00Z, or a day (UTC)");
    command.add_option("--to", arguments.to, "before then");
}

CLI::Option* add_paths(CLI::App& command, LogArguments& arguments) {
    return command.add_option("FILE|FOLDER", arguments.paths, "logs, and folders of logs such as /var/log/chrony");
}

} // namespace

void add_log_options(CLI::App& command, LogArguments& arguments) {
    command.add_option(
        "--kind", arguments.kind,
        "tracking, measurements, statistics, selection, refclocks, tempcomp or rtc; default: tracking, or "
        "the one that is there");
    add_period(command, arguments);
}

void add_event_options(CLI::App& command, LogArguments& arguments) {
    add_paths(command, arguments);
    command.add_option("--messages", arguments.messages,
                       "a file of chronyd's messages, as chronyd writes them or journalctl -o short-iso");
    command.add_flag("--journal", arguments.journal, "with chronyd's messages in the journal of this machine");
    add_period(command, arguments);
}

void add_history_plot_options(CLI::App& command, LogArguments& arguments) {
    add_paths(command, arguments)->required();
    command.add_flag("--events", arguments.events, "with flags where something happened");
    command.add_option("--compare", arguments.compare, "another machine's logs, laid over");
}

void add_evidence_options(CLI::App& command, LogArguments& arguments) {
    add_paths(command, arguments)->required();
    add_period(command, arguments);
    command.get_option("--from")->required();
    command.get_option("--to")->required();
    command.add_option("--limit", arguments.limit, "the largest error allowed, such as 100us, 1ms or 0.001 (seconds)")
        ->required();
    command.add_option("--gap", arguments.gap, "seconds without a record after which nothing is proven")
        ->capture_default_str()
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{1000000000}).description("give seconds, from 1"));
}

} // namespace tickervantage
