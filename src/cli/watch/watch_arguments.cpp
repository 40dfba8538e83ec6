#include "cli/watch/watch_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {

void add_health_options(CLI::App& command, HealthArguments& arguments) {
    command.add_option("-w,--warning", arguments.warning, "range of the error bound, such as 50ms (the default)");
    command.add_option("-c,--critical", arguments.critical, "the same for CRITICAL; default: 500ms");
    const auto seconds = CLI::Range(0.0, 1e12).description("give seconds");
    command.add_option("--holdover-warning", arguments.holdover_warning, "seconds in holdover; default: 3600")
        ->check(seconds);
    command.add_option("--holdover-critical", arguments.holdover_critical, "the same for CRITICAL; default: 86400")
        ->check(seconds);
    command.add_option("--sources-warning", arguments.sources_warning, "range of usable sources; default: 2:");
    command.add_option("--sources-critical", arguments.sources_critical, "the same for CRITICAL; default: 1:");
    command.add_option("-t,--timeout", arguments.time_limit, "seconds to wait for chronyd")
        ->capture_default_str()
        ->check(CLI::Range(0.1, 3600.0).description("give seconds, from 0.1 to 3600"));
}

void add_metrics_options(CLI::App& command, MetricsArguments& arguments) {
    command.add_option("--format", arguments.format, "prometheus or openmetrics")
        ->capture_default_str()
        ->check(CLI::IsMember({"prometheus", "openmetrics"}));
    command.add_option("--textfile", arguments.textfile, "replace this file, which the node exporter reads");
}

void add_rules_options(CLI::App& command, RulesArguments& arguments) {
    command.add_flag("--tests", arguments.tests, "tests of them, for promtool test rules");
}

} // namespace tickervantage
