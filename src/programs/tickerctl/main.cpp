// tickerctl: the program's logic without a window.
#include "config/settings_catalogue.h"
#include "mainwindow/versions.h"
#include "platform/linux/private_temporary.h"
#include "platform/linux/serial_queue.h"
#include "platform/linux/small_file.h"
#include "platform/linux/xdg_paths.h"
#include "platform/qt/qt_settings_store.h"
#include "programs/tickerctl/daemon_access.h"
#include "programs/tickerctl/plot_command.h"
#include "programs/tickerctl/settings_command.h"
#include "programs/tickerctl/status_command.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QTime>

#include <csignal>
#include <ctime>
#include <iostream>
#include <iterator>
#include <optional>

namespace tickervantage {
namespace {

constexpr int usage_error = 2;
constexpr std::size_t largest_report = 1U << 20U;

// Its sentences go to the terminal of the person who typed the command.
class TerminalLogger : public Logger {
public:
    void log(LogLevel, std::string_view sentence) override { std::cerr << "tickerctl: " << sentence << '\n'; }
};

int fail(const std::string& sentence) {
    std::cerr << "tickerctl: " << sentence << '\n';
    return usage_error;
}

struct Arguments {
    bool demo = false;
    bool json = false;
    std::string host;
    std::string from;
    std::string meter;
    double watch = 0;
    std::string key;
    std::string value;
    double meter_value = 0;
    bool per_second = false;
    std::string clock_time;
    std::string size = "200x200";
    PlotOptions plot;
};

class Tool {
public:
    Tool(const Arguments& arguments, Paths paths, DaemonAccess& daemon)
        : m_arguments(arguments), m_paths(std::move(paths)), m_daemon(daemon), m_queue("net.brisklane.settings"),
          m_store(m_paths.settings, m_queue, m_logger), m_settings(m_store) {}

    int status();
    int report(const std::vector<std::string>& words);
    [[nodiscard]] SettingsCommand settings_command();
    [[nodiscard]] OutputForm form() const { return m_arguments.json ? OutputForm::json : OutputForm::text; }

private:
    [[nodiscard]] int read_tracking(std::string& text);
    [[nodiscard]] std::optional<meterView> view() const;
    int version_report();

    const Arguments& m_arguments;
    Paths m_paths;
    DaemonAccess& m_daemon;
    TerminalLogger m_logger;
    SerialQueue m_queue;
    QtSettingsStore m_store;
    DefaultSettings m_settings;
};

std::optional<meterView> Tool::view() const {
    if (!m_arguments.meter.empty())
        return meter_view_named(m_arguments.meter);
    const auto stored = load(m_settings, settings::meter_view);
    return stored >= 0 && stored < meter_view_count ? static_cast<meterView>(stored) : meterView::lastoffset;
}

int Tool::read_tracking(std::string& text) {
    if (m_arguments.from == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
        return 0;
    }
    if (!m_arguments.from.empty()) {
        const SmallFile file = read_small_file(m_arguments.from, largest_report);
        if (file.outcome == SmallFile::Outcome::missing)
            return fail("There is no file " + m_arguments.from + ".");
        if (file.outcome != SmallFile::Outcome::read)
            return fail(m_arguments.from + " cannot be read: " + file.reason + ".");
        text = file.bytes;
        return 0;
    }
    const ExecuteResult result = m_daemon.runner(m_settings, m_paths).run("tracking");
    if (!result.sentence.empty())
        std::cerr << "tickerctl: " << result.sentence << '\n';
    text = result.output;
    return 0;
}

// Waits for the next turn of --watch. True: the user or the system asked to end.
bool asked_to_end_within(double seconds) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, number);
    const auto whole = static_cast<std::time_t>(seconds);
    const std::timespec wait{whole, static_cast<long>((seconds - static_cast<double>(whole)) * 1e9)};
    return sigtimedwait(&signals, nullptr, &wait) > 0;
}

int Tool::status() {
    const auto shown = view();
    if (!shown)
        return fail("There is no meter view \"" + m_arguments.meter +
                    "\"; there are systemtime, lastoffset, rmsoffset, rootdelay, rootdispersion and frequency.");
    const bool watching = m_arguments.watch > 0;
    const StatusForm form = !m_arguments.json ? StatusForm::text : watching ? StatusForm::json_line : StatusForm::json;
    while (true) {
        std::string text;
        if (const int failed = read_tracking(text); failed != 0)
            return failed;
        const int answer = print_status(text, *shown, form, std::cout);
        if (!watching || !std::cout || asked_to_end_within(m_arguments.watch))
            return answer;
        if (form == StatusForm::text)
            std::cout << '\n';
    }
}

int Tool::version_report() {
    const auto programs = configured_programs(m_settings, m_paths);
    const auto ask = [&](std::string_view program) { return version_query(m_daemon.execute(), programs, program); };
    const ExecuteResult chronyd = ask(bundle_chronyd);
    const ExecuteResult chronyc = ask(bundle_chronyc);
    std::cout << version_text(chronyd.output, chronyc.output) << '\n';
    for (const auto& sentence : {chronyd.sentence, chronyc.sentence})
        if (!sentence.empty())
            std::cerr << "tickerctl: " << sentence << '\n';
    return chronyd.sentence.empty() && chronyc.sentence.empty() ? 0 : 1;
}

int Tool::report(const std::vector<std::string>& words) {
    std::string command;
    for (const auto& word : words)
        command += (command.empty() ? "" : " ") + word;
    if (command.empty())
        return fail("Which report? For example: tickerctl report sources -v");
    if (command == "version")
        return version_report();
    const ExecuteResult result = m_daemon.runner(m_settings, m_paths).run(command);
    std::cout << result.output;
    if (!result.sentence.empty())
        std::cerr << "tickerctl: " << result.sentence << '\n';
    return result.exit_status == 0 && result.sentence.empty() ? 0 : 1;
}

SettingsCommand Tool::settings_command() {
    const auto finish = [this](std::string& sentence) { return m_store.finish(std::chrono::seconds(5), sentence); };
    return {m_store, finish, std::cout, std::cerr};
}

ClockTime now() {
    const QTime time = QTime::currentTime();
    return {time.hour(), time.minute(), time.second()};
}

int plot(Arguments& arguments, bool clock, int argc, char** argv) {
    if (parse_size(arguments.size, arguments.plot) != 0)
        return fail("A size is written as 640x480, not \"" + arguments.size + "\".");
    const auto time = arguments.clock_time.empty() ? std::optional(now()) : parse_clock_time(arguments.clock_time);
    if (!time)
        return fail("A time is written as 15:30:00, not \"" + arguments.clock_time + "\".");
    qputenv("QT_QPA_PLATFORM", "offscreen"); // a picture needs fonts, but no display
    const QGuiApplication application(argc, argv);
    std::string sentence;
    const int result = clock ? plot_clock(*time, arguments.plot, sentence)
                             : plot_meter(arguments.meter_value, arguments.per_second, arguments.plot, sentence);
    return result == 0 ? 0 : fail(sentence);
}

struct Commands {
    CLI::App app{"tickerctl: look at the clock and at chrony from the command line"};
    CLI::App* status = nullptr;
    CLI::App* report = nullptr;
    CLI::App* settings_list = nullptr;
    CLI::App* settings_get = nullptr;
    CLI::App* settings_set = nullptr;
    CLI::App* settings_reset = nullptr;
    CLI::App* plot_meter = nullptr;
    CLI::App* plot_clock = nullptr;
};

void add_status(Commands& commands, Arguments& arguments) {
    commands.status = commands.app.add_subcommand("status", "Is the clock synchronised, and how well? (exit status 1: no)");
    auto* from = commands.status->add_option("--from", arguments.from, "a saved \"tracking\" report; - for standard input");
    commands.status->add_option("--meter", arguments.meter, "quantity on the meter, such as lastoffset or frequency");
    commands.status->add_flag("--json", arguments.json, "one JSON document; with --watch one a line");
    commands.status->add_option("--watch", arguments.watch, "again every so many seconds, until interrupted")
        ->check(CLI::Range(0.1, 86400.0))
        ->excludes(from);
}

void add_report(Commands& commands) {
    commands.report = commands.app.add_subcommand("report", "A chronyc report, as it comes: report sources -v");
    commands.report->prefix_command();
}

void add_settings(Commands& commands, Arguments& arguments) {
    auto* settings = commands.app.add_subcommand("settings", "The settings, shared with the desktop program");
    settings->require_subcommand(1);
    commands.settings_list = settings->add_subcommand("list", "Every setting with its value and default");
    commands.settings_get = settings->add_subcommand("get", "One setting's value");
    commands.settings_set = settings->add_subcommand("set", "Change one setting");
    commands.settings_reset = settings->add_subcommand("reset", "Back to the defaults");
    for (auto* command : {commands.settings_list, commands.settings_get})
        command->add_flag("--json", arguments.json, "as JSON");
    for (auto* command : {commands.settings_get, commands.settings_set})
        command->add_option("KEY", arguments.key, "the setting's key")->required();
    commands.settings_set->add_option("VALUE", arguments.value, "its new value")->required();
}

void add_plot(Commands& commands, Arguments& arguments) {
    auto* plot = commands.app.add_subcommand("plot", "The instruments as pictures");
    plot->require_subcommand(1);
    commands.plot_meter = plot->add_subcommand("meter", "The performance meter");
    commands.plot_meter->add_option("VALUE", arguments.meter_value, "nanoseconds")->required();
    commands.plot_meter->add_flag("--per-second", arguments.per_second, "the value is a rate, in nanoseconds per second");
    commands.plot_clock = plot->add_subcommand("clock", "The clock");
    commands.plot_clock->add_option("TIME", arguments.clock_time, "such as 15:30:00; default: now");
    for (auto* command : {commands.plot_meter, commands.plot_clock}) {
        command->add_option("-o,--output", arguments.plot.output, "the picture, .png or .svg")->required();
        command->add_option("--size", arguments.size, "width and height in pixels")->capture_default_str();
        command->add_flag("--dark", arguments.plot.dark, "on a dark background");
    }
}

void block_end_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, number);
    (void)pthread_sigmask(SIG_BLOCK, &signals, nullptr); // fails only for an unknown first argument
}

int run(const Commands& commands, Arguments& arguments, int argc, char** argv) {
    if (commands.plot_meter->parsed() || commands.plot_clock->parsed())
        return plot(arguments, commands.plot_clock->parsed(), argc, argv);

    const PrivateTemporary temporary;
    const Paths paths = process_paths();
    DaemonAccess daemon;
    daemon.host = arguments.host;
    std::string sentence;
    if (arguments.demo && daemon.start_demonstration(paths, sentence) != 0)
        return fail(sentence);
    if (arguments.watch > 0)
        block_end_signals();
    const QCoreApplication application(argc, argv);
    Tool tool(arguments, paths, daemon);
    if (arguments.demo && daemon.wait_for_demonstration(paths, sentence) != 0)
        return fail(sentence);
    if (commands.status->parsed())
        return tool.status();
    if (commands.report->parsed())
        return tool.report(commands.report->remaining());
    if (commands.settings_list->parsed())
        return tool.settings_command().list(tool.form());
    if (commands.settings_get->parsed())
        return tool.settings_command().get(arguments.key, tool.form());
    if (commands.settings_set->parsed())
        return tool.settings_command().set(arguments.key, arguments.value);
    return tool.settings_command().reset();
}

int parse_and_run(int argc, char** argv) {
    Arguments arguments;
    Commands commands;
    commands.app.set_version_flag("--version", "tickerctl " TICKERVANTAGE_VERSION);
    commands.app.require_subcommand(1);
    commands.app.add_option("--host", arguments.host, "the daemon to ask, an address or the path of a socket");
    commands.app.add_flag("--demo", arguments.demo, "ask a demonstration daemon, started for this one command");
    add_status(commands, arguments);
    add_report(commands);
    add_settings(commands, arguments);
    add_plot(commands, arguments);
    try {
        commands.app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return commands.app.exit(help);
    } catch (const CLI::ParseError& error) {
        return fail(error.what());
    }
    return run(commands, arguments, argc, argv);
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) { return tickervantage::parse_and_run(argc, argv); }
