#include "cli/arguments.h"

#include "cli/terminal.h"
#include "cli/watch/health_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <limits>
#include <utility>

namespace tickervantage {
namespace {

struct CommandLine {
    CLI::App app{"tickerctl: look at the clock and at chrony from the command line"};
    std::vector<std::pair<CLI::App*, Job>> jobs;
    CLI::App* report = nullptr;

    CLI::App* add(CLI::App* above, Job job, const char* name, const char* description) {
        jobs.emplace_back(above->add_subcommand(name, description), job);
        return jobs.back().first;
    }

    [[nodiscard]] Job chosen() const {
        for (const auto& [command, job] : jobs)
            if (command->parsed())
                return job;
        return Job::status; // not reached: a command is required
    }

    [[nodiscard]] bool is_in(Job job) const {
        return std::ranges::any_of(jobs, [&](const auto& one) { return one.second == job && one.first->parsed(); });
    }
};

// A limit that "nan" does not pass either.
CLI::Validator number_within(double least, double most, const std::string& complaint) {
    const auto check = [=](const std::string& text) {
        double number = 0;
        const bool fits = CLI::detail::lexical_cast(text, number) && number >= least && number <= most;
        return fits ? std::string() : complaint;
    };
    return {check, ""};
}

constexpr const char* saved_capture = "a capture; - for standard input";

void add_watch(CLI::App* command, Arguments& arguments, CLI::Option* from) {
    command->add_option("--watch", arguments.watch_seconds, "again every so many seconds, until interrupted")
        ->check(number_within(0.1, 86400, "give seconds, from 0.1 to 86400"))
        ->excludes(from);
}

void add_configuration(CommandLine& line, Arguments& arguments) {
    auto* config = line.add(&line.app, Job::config, "config", "The directives of a chrony.conf, or one's value");
    auto* check = line.add(&line.app, Job::check, "check", "Let chronyd check a chrony.conf (exit status 1: no)");
    for (auto* command : {config, check}) {
        command->add_option("FILE", arguments.config.file, "a configuration, such as /etc/chrony/chrony.conf")
            ->required();
        command->add_flag("--json", arguments.json, "one JSON document");
    }
    config->add_option("DIRECTIVE", arguments.config.directive, "only this one's value, such as logdir");
}

void add_servers(CommandLine& line, Arguments& arguments) {
    auto* servers = line.add(&line.app, Job::servers, "servers", "The list of servers (exit status 1: one is invalid)");
    servers->add_option("FILE", arguments.servers.file, "a server list; default: the one of the desktop program");
    auto* as_json = servers->add_flag("--json", arguments.json, "one JSON document");
    servers->add_flag("--as-config", arguments.servers.as_config, "as lines of chrony's configuration")
        ->excludes(as_json);
}

void add_help(CommandLine& line, Arguments& arguments) {
    auto* help = line.add(&line.app, Job::help, "help", "The program's and chrony's manuals");
    auto* topic = help->add_option("TOPIC", arguments.help.topic, "a page, such as faq or chrony.conf");
    help->add_option("--search", arguments.help.words, "the passages of all pages that hold these words")
        ->excludes(topic);
}

void add_status(CommandLine& line, Arguments& arguments) {
    auto* status = line.add(&line.app, Job::status, "status",
                            "Is the clock right, and how far can it be off? (exit status 1: it follows no source)");
    auto* from =
        status->add_option("--from", arguments.from, "a capture, or a saved \"tracking\" report; - for standard input");
    status->add_option("--meter", arguments.meter, "quantity on the meter, such as lastoffset or frequency");
    status->add_flag("--json", arguments.json, "one JSON document; with --watch one a line");
    add_watch(status, arguments, from);
}

void add_truth(CommandLine& line, Arguments& arguments) {
    auto* explain = line.add(&line.app, Job::explain, "explain",
                             "Why each source is used or not, and what would change it (exit status 1: none is used)");
    auto* sources = line.add(&line.app, Job::sources, "sources", "The sources, and what chronyd makes of each");
    auto* budget = line.add(&line.app, Job::budget, "budget",
                            "How far off the clock can be, and what that is made of (exit status 1: not known)");
    auto* capture = line.add(&line.app, Job::capture, "capture",
                             "All that chronyd says now, in one file that can be explained elsewhere");
    explain->add_option("SOURCE", arguments.source, "its address, name or reference ID; default: all");
    for (auto* command : {explain, sources, budget}) {
        auto* from = command->add_option("--from", arguments.from, saved_capture);
        command->add_flag("--json", arguments.json, "as JSON");
        if (command == sources)
            add_watch(command, arguments, from);
    }
    for (auto* command : {explain, sources, capture})
        command->add_flag("--root", arguments.as_root,
                          "with what chronyd tells root only; asks for an administrator's password");
    capture->add_option("-o,--output", arguments.output, "the file to write; default: standard output");
}

void add_probe(CommandLine& line, Arguments& arguments) {
    auto* probe = line.add(&line.app, Job::probe, "probe", "Does this time server answer? (exit status 1: no)");
    probe->add_option("HOST", arguments.source, "its name or address")->required();
    probe->add_flag("--nts", arguments.nts, "with authentication (Network Time Security)");
    probe->add_option("--port", arguments.port, "its port; default: 123")
        ->check(number_within(1, 65535, "give a port, from 1 to 65535"));
    probe->add_option("--timeout", arguments.timeout_seconds, "seconds to wait for an answer")
        ->capture_default_str()
        ->check(number_within(1, 600, "give seconds, from 1 to 600"));
    probe->add_flag("--json", arguments.json, "one JSON document");
}

void add_watch_commands(CommandLine& line, Arguments& arguments) {
    auto* health = line.add(&line.app, Job::health, "health",
                            "One line for Nagios, Icinga and their like (exit status: 0 OK, 1 WARNING, 2 CRITICAL, "
                            "3 UNKNOWN)");
    add_health_options(*health, arguments.health);
    health->add_option("-H,--host", arguments.host, "as in front of the command: the daemon to ask");
    auto* metrics = line.add(&line.app, Job::metrics, "metrics", "The clock and its sources, as Prometheus reads them");
    add_metrics_options(*metrics, arguments.metrics);
    for (auto* command : {health, metrics})
        command->add_option("--from", arguments.from, saved_capture);
    auto* rules = line.add(&line.app, Job::rules, "rules", "Alerting rules for Prometheus, over these metrics");
    add_rules_options(*rules, arguments.rules);
}

void add_report(CommandLine& line) {
    line.report = line.add(&line.app, Job::report, "report", "A chronyc report, as it comes: report sources -v");
    line.report->prefix_command();
}

void add_settings(CommandLine& line, Arguments& arguments) {
    auto* settings = line.app.add_subcommand("settings", "The settings, shared with the desktop program");
    settings->require_subcommand(1);
    auto* list = line.add(settings, Job::settings_list, "list", "Every setting with its value and default");
    auto* get = line.add(settings, Job::settings_get, "get", "One setting's value");
    auto* set = line.add(settings, Job::settings_set, "set", "Change one setting");
    line.add(settings, Job::settings_reset, "reset", "Back to the defaults");
    for (auto* command : {list, get})
        command->add_flag("--json", arguments.json, "as JSON");
    for (auto* command : {get, set})
        command->add_option("KEY", arguments.key, "the setting's key")->required();
    set->add_option("VALUE", arguments.value, "its new value")->required();
}

void add_spectrum_options(CLI::App* command, Arguments& arguments) {
    command->add_option("LOG", arguments.log, "the tracking log")->required();
    command->add_option("--series", arguments.series, "offset, rem_cor or rms_offset")->capture_default_str();
    command->add_option("--interval", arguments.interval, "seconds between two samples; default: as in the settings")
        ->check(number_within(1e-9, 1e9, "give seconds, more than 0"));
    command->add_option("--duration", arguments.duration, "seconds analysed; default: as in the settings")
        ->check(number_within(0, 1e12, "give seconds"));
}

void add_spectrum(CommandLine& line, Arguments& arguments) {
    auto* spectrum = line.add(&line.app, Job::spectrum, "spectrum", "The spectrum of a tracking log");
    add_spectrum_options(spectrum, arguments);
    spectrum->add_flag("--json", arguments.json, "one JSON document");
}

void add_log(CommandLine& line, Arguments& arguments) {
    auto* log = line.add(&line.app, Job::log, "log", "The records of a log of chrony (exit status 1: it has none)");
    auto* follow = line.add(&line.app, Job::follow, "follow", "The lines of a log, and those that are added to it");
    log->add_option("FILE|FOLDER", arguments.log, "a log, or a folder of logs such as /var/log/chrony")->required();
    follow->add_option("FILE", arguments.log, "a log, such as /var/log/chrony/tracking.log")->required();
    add_log_options(*log, arguments.logs);
    log->add_option("--source", arguments.source, "records of this source only, an address or a reference ID");
    auto* json = log->add_flag("--json", arguments.json, "one line of JSON a record; with --summary one document");
    log->add_flag("--csv", arguments.csv, "comma-separated values")->excludes(json);
    log->add_flag("--summary", arguments.summary, "what the values of every series are like");
    follow->add_flag("--json", arguments.json, "one line of JSON a line");
    follow->add_option("--for", arguments.for_seconds, "so many seconds; default: until interrupted")
        ->check(number_within(0.1, 2000000, "give seconds, from 0.1 to 2000000"));
    auto* events = line.add(&line.app, Job::events, "events",
                            "What happened to the clock, as logs and messages tell it (exit status 1: nothing)");
    add_event_options(*events, arguments.logs);
    events->add_flag("--json", arguments.json, "one line of JSON an event");
    auto* evidence = line.add(&line.app, Job::evidence, "evidence",
                              "How long the clock was right within a limit (exit status 1: not all the time)");
    add_evidence_options(*evidence, arguments.logs);
    evidence->add_option("-o,--output", arguments.output, "a file, .html, .pdf or .json; default: JSON, printed");
    evidence->add_flag("--json", arguments.json, "as JSON, which is the default");
}

void add_history(CommandLine& line, Arguments& arguments) {
    auto* history = line.add(&line.app, Job::history, "history",
                             "How the clock was, and what happened to it (exit status 1: not kept)");
    add_history_options(*history, arguments.history);
    history->add_option("--source", arguments.source, "the readings of this source; its address or reference ID");
    auto* json = history->add_flag("--json", arguments.json, "one JSON document");
    history->add_flag("--csv", arguments.csv, "comma-separated values")->excludes(json);
    auto* sample = line.add(&line.app, Job::sample, "sample", "Keep a history of the clock");
    add_sample_options(*sample, arguments.history);
    sample->add_option("--for", arguments.for_seconds, "so many seconds; default: until interrupted")
        ->check(number_within(0.1, 2000000, "give seconds, from 0.1 to 2000000"));
}

void add_laboratory(CommandLine& line, Arguments& arguments) {
    auto* stability = line.add(&line.app, Job::stability, "stability",
                               "How steady the clock is over which time (exit status 1: the log is too short)");
    add_stability_options(*stability, arguments.laboratory);
    auto* holdover = line.add(&line.app, Job::holdover, "holdover",
                              "How far it would be off without its sources (exit status 1: not enough history)");
    add_holdover_options(*holdover, arguments.laboratory);
    auto* tempcomp = line.add(&line.app, Job::tempcomp, "tempcomp",
                              "A table for chronyd's temperature compensation (exit status 1: it would not help)");
    add_tempcomp_options(*tempcomp, arguments.laboratory);
    tempcomp->add_option("-o,--output", arguments.output, "the file to write; default: standard output");
    for (auto* command : {stability, holdover, tempcomp})
        command->add_flag("--json", arguments.json, "one JSON document");
}

void add_picture_options(CLI::App* command, Arguments& arguments, std::string& size) {
    command->add_option("-o,--output", arguments.output, "the picture, .png, .svg or .pdf")->required();
    command->add_option("--size", size, "width and height in pixels")->capture_default_str();
    command->add_flag("--dark", arguments.dark, "on a dark background");
}

void add_chart_options(CLI::App* command, Arguments& arguments) {
    add_picture_options(command, arguments, arguments.chart_size);
    command->add_flag("--caption", arguments.caption, "with a title, dates and a legend around it");
}

void add_plot_tracking(CommandLine& line, CLI::App* plot, Arguments& arguments) {
    auto* tracking = line.add(plot, Job::plot_tracking, "tracking", "The graph of a tracking log");
    tracking->add_option("FILE", arguments.log, "a log, such as /var/log/chrony/tracking.log")->required();
    tracking->add_option("--series", arguments.shown_series, "such as offset,rms_offset; default: as in the settings");
    auto* linear = tracking->add_flag("--linear", arguments.linear, "linear scale");
    tracking->add_flag("--log", arguments.logarithmic, "logarithmic scale")->excludes(linear);
    const auto zoom = number_within(-10, 10, "give a zoom from -10 to 10");
    auto* hzoom = tracking->add_option("--hzoom", arguments.hzoom, "doubles the width with every 1")->check(zoom);
    tracking->add_option("--vzoom", arguments.vzoom, "doubles the height with every 1")->check(zoom);
    tracking->add_option("--vscale", arguments.vscale, "0: microseconds, 3: nanoseconds")->check(zoom);
    tracking->add_option("--hours", arguments.hours, "so much history over the whole width")
        ->check(number_within(0.01, 1000000, "give hours, from 0.01 to 1000000"))
        ->excludes(hzoom);
    tracking->add_option("--end", arguments.end, "2026-11-21T02:15:03Z; default: the last record");
    add_chart_options(tracking, arguments);
}

void add_freqtemp(CommandLine& line, Arguments& arguments) {
    auto* sensors = line.add(&line.app, Job::sensors, "sensors", "The machine's temperature sensors");
    auto* fit = line.add(&line.app, Job::fit, "fit", "Frequency fitted to temperature (exit status 1: no fit)");
    auto* record = line.add(&line.app, Job::record, "record", "Record frequency against temperature");
    for (auto* command : {sensors, fit})
        command->add_flag("--json", arguments.json, "one JSON document");
    add_fit_options(*fit, arguments.freqtemp);
    add_record_options(*record, arguments.freqtemp);
}

void add_plot(CommandLine& line, Arguments& arguments) {
    auto* plot = line.app.add_subcommand("plot", "The instruments and charts as pictures");
    plot->require_subcommand(1);
    auto* meter = line.add(plot, Job::plot_meter, "meter", "The performance meter");
    meter->add_option("VALUE", arguments.meter_value, "nanoseconds")
        ->required()
        ->check(
            number_within(std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max(), "give a number"));
    meter->add_flag("--per-second", arguments.per_second, "the value is a rate, in nanoseconds per second");
    auto* clock = line.add(plot, Job::plot_clock, "clock", "The clock");
    clock->add_option("TIME", arguments.clock_time, "such as 15:30:00; default: now");
    for (auto* command : {meter, clock})
        add_picture_options(command, arguments, arguments.size);
    auto* spectrum = line.add(plot, Job::plot_spectrum, "spectrum", "The spectrum of a tracking log");
    add_spectrum_options(spectrum, arguments);
    add_chart_options(spectrum, arguments);
    add_plot_tracking(line, plot, arguments);
    auto* error = line.add(plot, Job::plot_error, "error", "The error of the clock over time");
    auto* sources = line.add(plot, Job::plot_sources, "sources", "How each source stood over time");
    for (auto* command : {error, sources}) {
        add_history_plot_options(*command, arguments.logs);
        add_chart_options(command, arguments);
    }
    auto* freqtemp = line.add(plot, Job::plot_freqtemp, "freqtemp", "Frequency against temperature");
    add_plot_freqtemp_options(*freqtemp, arguments.freqtemp);
    add_chart_options(freqtemp, arguments);
}

void add_all(CommandLine& line, Arguments& arguments) {
    line.app.set_version_flag("--version", "tickerctl " TICKERVANTAGE_VERSION);
    line.app.require_subcommand(1);
    line.app.add_option("--host", arguments.host, "the daemon to ask, an address or the path of a socket");
    line.app.add_flag("--demo", arguments.demo, "ask a demonstration daemon, started for this one command");
    line.app.add_option("--config", arguments.configuration, "the chrony.conf of that daemon");
    add_status(line, arguments);
    add_truth(line, arguments);
    add_probe(line, arguments);
    add_watch_commands(line, arguments);
    add_report(line);
    add_settings(line, arguments);
    add_log(line, arguments);
    add_history(line, arguments);
    add_laboratory(line, arguments);
    add_spectrum(line, arguments);
    add_plot(line, arguments);
    add_freqtemp(line, arguments);
    add_servers(line, arguments);
    add_configuration(line, arguments);
    add_help(line, arguments);
    auto* admin = line.add(&line.app, Job::admin, "admin", "What needs administrator rights");
    add_admin_jobs(*admin, arguments.admin, arguments.json);
}

} // namespace

std::optional<Arguments> read_arguments(int argc, char** argv, int& exit_status) {
    Arguments arguments;
    CommandLine line;
    add_all(line, arguments);
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        exit_status = line.app.exit(help);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        const auto unknown = line.app.remaining(true);
        const bool is_missing = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::RequiredError);
        const std::string what = is_missing && !unknown.empty() ? "There is no command \"" + unknown.front() + "\""
                                                                : std::string(error.what());
        const std::string complaint = what + "; see tickerctl --help.";
        exit_status = line.is_in(Job::health) ? print_health(unknown_health(complaint), std::cout) : fail(complaint);
        return std::nullopt;
    }
    arguments.job = line.chosen();
    arguments.report = line.report->remaining();
    return arguments;
}

} // namespace tickervantage
