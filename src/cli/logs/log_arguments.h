// The command lines of `tickerctl log`, `tickerctl events` and `tickerctl evidence`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace tickervantage {

struct LogArguments {
    std::vector<std::string> paths; // files and folders
    std::optional<std::string> kind;
    std::optional<std::string> from; // 2026-11-22T01:30:00Z, or a day
    std::optional<std::string> to;
    std::optional<std::string> messages; // a file of chronyd's messages
    bool journal = false;
    std::string limit;
    std::int64_t gap = 4096; // s
    bool events = false;     // flagged in a picture
    std::optional<std::string> compare;
};

void add_log_options(CLI::App& command, LogArguments& arguments);
void add_event_options(CLI::App& command, LogArguments& arguments);
void add_history_plot_options(CLI::App& command, LogArguments& arguments);
void add_evidence_options(CLI::App& command, LogArguments& arguments);

} // namespace tickervantage
