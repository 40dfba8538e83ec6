// The command lines of `tickerctl history` and `tickerctl sample`.
#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
} // namespace CLI

namespace tickervantage {

struct HistoryArguments {
    std::optional<std::string> from; // 2026-11-22T01:30:00Z, or a day
    std::optional<std::string> to;
    std::optional<std::string> file; // none: the user's own
    double every_seconds = 10;
};

void add_history_options(CLI::App& command, HistoryArguments& arguments);
void add_sample_options(CLI::App& command, HistoryArguments& arguments);

} // namespace tickervantage
