// The options of `tickerctl health`, `metrics` and `rules`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace tickervantage {

struct HealthArguments {
    std::optional<std::string> warning; // ranges, as they were typed
    std::optional<std::string> critical;
    std::optional<std::string> sources_warning;
    std::optional<std::string> sources_critical;
    std::optional<double> holdover_warning; // s
    std::optional<double> holdover_critical;
    double time_limit = 10; // s
};

struct MetricsArguments {
    std::string format = "prometheus";
    std::string textfile; // empty: standard output
};

struct RulesArguments {
    bool tests = false;
};

void add_health_options(CLI::App& command, HealthArguments& arguments);
void add_metrics_options(CLI::App& command, MetricsArguments& arguments);
void add_rules_options(CLI::App& command, RulesArguments& arguments);

} // namespace tickervantage
