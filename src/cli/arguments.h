// The command line of tickerctl.
#pragma once

#include "cli/admin/admin_arguments.h"
#include "cli/freqtemp/freqtemp_arguments.h"
#include "cli/history/history_arguments.h"
#include "cli/laboratory/laboratory_arguments.h"
#include "cli/logs/log_arguments.h"
#include "cli/watch/watch_arguments.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

enum class Job : unsigned char {
    status,
    sources,
    explain,
    budget,
    capture,
    probe,
    health,
    metrics,
    rules,
    report,
    settings_list,
    settings_get,
    settings_set,
    settings_reset,
    log,
    events,
    evidence,
    follow,
    history,
    sample,
    stability,
    holdover,
    tempcomp,
    spectrum,
    plot_meter,
    plot_clock,
    plot_spectrum,
    plot_tracking,
    plot_freqtemp,
    plot_error,
    plot_sources,
    sensors,
    fit,
    record,
    admin,
    config,
    check,
    servers,
    help
};

struct ConfigArguments {
    std::string file;
    std::optional<std::string> directive; // none: all of them
};

struct ServersArguments {
    std::optional<std::string> file; // none: the user's own list
    bool as_config = false;
};

struct HelpArguments {
    std::optional<std::string> topic; // none: the list of topics
    std::string words;                // to search all pages for; empty: no search
};

struct Arguments {
    Job job = Job::status;
    std::string host;                         // empty: chronyc's own choice
    std::optional<std::string> configuration; // of that daemon
    bool demo = false;
    bool json = false;
    std::optional<std::string> from; // a path, or "-" for standard input
    std::optional<std::string> meter;
    std::optional<std::string> source; // of chronyd; to be probed: a host
    bool as_root = false;              // ask for an administrator's password
    bool nts = false;
    std::optional<int> port;
    double timeout_seconds = 5;
    double watch_seconds = 0; // 0: once
    std::vector<std::string> report;
    std::string log; // the path of a log
    bool csv = false;
    bool summary = false;
    double for_seconds = 0; // 0: until interrupted
    std::string series = "offset";
    std::optional<double> interval;          // s
    std::optional<double> duration;          // s
    std::optional<std::string> shown_series; // of the tracking graph, separated by commas
    bool linear = false;
    bool logarithmic = false;
    std::optional<double> hzoom;
    std::optional<double> vzoom;
    std::optional<double> vscale;
    std::optional<double> hours;
    std::optional<std::string> end;
    AdminArguments admin;
    ConfigArguments config;
    FreqTempArguments freqtemp;
    HelpArguments help;
    HistoryArguments history;
    LaboratoryArguments laboratory;
    LogArguments logs;
    HealthArguments health;
    MetricsArguments metrics;
    RulesArguments rules;
    ServersArguments servers;
    std::string key;
    std::string value;
    double meter_value = 0; // ns, or ns/s
    bool per_second = false;
    std::optional<std::string> clock_time;
    std::string output;
    std::string size = "200x200";       // of an instrument
    std::string chart_size = "800x450"; // of a chart
    bool dark = false;
    bool caption = false;
};

// None: nothing is left to do (help was asked for, or the usage was wrong and one line said so), and `exit_status` says
// how to end.
[[nodiscard]] std::optional<Arguments> read_arguments(int argc, char** argv, int& exit_status);

} // namespace tickervantage
