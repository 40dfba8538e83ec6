// tickerctl: the program's logic without a window.
#include "cli/arguments.h"
#include "cli/logs/plot_chart.h"
#include "cli/logs/plot_command.h"
#include "cli/logs/plot_history.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/posix_followed_file.h"
#include "linux/private_temporary.h"
#include "linux/xdg_paths.h"
#include "qt/pdf_document.h"

#include <sys/prctl.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLocale>
#include <QTime>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

namespace tickervantage {
namespace {

// Qt's remarks on the session would be lines beside the one that a failure is told in.
void qt_message(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg)
        return;
    complain(message.toStdString());
    std::_Exit(has_failed); // Qt would abort
}

ClockTime now() {
    const QTime time = QTime::currentTime();
    return {time.hour(), time.minute(), time.second()};
}

int plot_instrument(const Arguments& arguments, const PlotOptions& options) {
    const auto time = arguments.clock_time ? parse_clock_time(*arguments.clock_time) : now();
    if (!time)
        return fail("A time is written as 15:30:00, not \"" + *arguments.clock_time + "\".");
    return exit_status(arguments.job == Job::plot_clock
                           ? plot_clock(*time, options)
                           : plot_meter(arguments.meter_value, arguments.per_second, options));
}

int plot_graph(const Tool& tool, const PlotOptions& options) {
    TrackingPlot graph;
    if (const int result = tool.tracking_plot(graph); result != 0)
        return result;
    PosixFollowedFiles files;
    return exit_status(plot_tracking(files, graph, options));
}

int plot_scatter(const Tool& tool, const PlotOptions& options) {
    FreqTempView view;
    if (const int result = tool.freqtemp_view(view); result != 0)
        return result;
    return exit_status(plot_freqtemp(view, options));
}

int plot_panel(const Arguments& arguments, const PlotOptions& options) {
    PosixFollowedFiles files;
    const HistoryPlot plot{.panel = arguments.job == Job::plot_error ? HistoryPanel::error : HistoryPanel::sources,
                           .paths = arguments.logs.paths,
                           .events = arguments.logs.events,
                           .compare = arguments.logs.compare};
    return exit_status(plot_history(files, plot, options));
}

int plot_log(const Arguments& arguments, const PlotOptions& options) {
    DaemonAccess daemon;
    const EndSignals signals(daemon.execute());
    const Tool tool(arguments, process_paths(), daemon, signals);
    if (arguments.job == Job::plot_tracking)
        return plot_graph(tool, options);
    if (arguments.job == Job::plot_freqtemp)
        return plot_scatter(tool, options);
    if (arguments.job == Job::plot_error || arguments.job == Job::plot_sources)
        return plot_panel(arguments, options);
    ComputedSpectrum spectrum;
    if (const int result = tool.read_spectrum(spectrum); result != 0)
        return result;
    return exit_status(plot_spectrum(std::move(spectrum), options));
}

int plot(const Arguments& arguments, int argc, char** argv) {
    const bool is_chart = arguments.job != Job::plot_meter && arguments.job != Job::plot_clock;
    const std::string& size = is_chart ? arguments.chart_size : arguments.size;
    PlotOptions options;
    options.output = arguments.output;
    options.dark = arguments.dark;
    options.caption = arguments.caption;
    if (parse_size(size, options) != 0)
        return fail("A size is written as 640x480, with sides of 1 to " + std::to_string(largest_plot_side) +
                    ", not \"" + size + "\".");
    qputenv("QT_QPA_PLATFORM", "offscreen"); // a picture needs fonts, but no display
    const QGuiApplication application(argc, argv);
    return is_chart ? plot_log(arguments, options) : plot_instrument(arguments, options);
}

int do_job(const Arguments& arguments, Tool& tool) {
    const OutputForm form = arguments.json ? OutputForm::json : OutputForm::text;
    switch (arguments.job) {
    case Job::sources:
        return tool.sources();
    case Job::explain:
        return tool.explain();
    case Job::budget:
        return tool.budget();
    case Job::capture:
        return tool.capture();
    case Job::probe:
        return tool.probe();
    case Job::health:
        return tool.health();
    case Job::metrics:
        return tool.metrics();
    case Job::rules:
        return tool.rules();
    case Job::report:
        return tool.report();
    case Job::settings_list:
        return tool.settings_command().list(form);
    case Job::settings_get:
        return tool.settings_command().get(arguments.key, form);
    case Job::settings_set:
        return tool.settings_command().set(arguments.key, arguments.value);
    case Job::settings_reset:
        return tool.settings_command().reset();
    case Job::log:
        return tool.log();
    case Job::events:
        return tool.events();
    case Job::evidence:
        return tool.evidence();
    case Job::follow:
        return tool.follow();
    case Job::history:
        return tool.history();
    case Job::sample:
        return tool.sample();
    case Job::stability:
        return tool.stability();
    case Job::holdover:
        return tool.holdover();
    case Job::tempcomp:
        return tool.tempcomp();
    case Job::spectrum:
        return tool.spectrum();
    case Job::admin:
        return tool.admin();
    case Job::config:
        return tool.config();
    case Job::check:
        return tool.check();
    case Job::servers:
        return tool.servers();
    case Job::help:
        return tool.help();
    case Job::sensors:
        return tool.sensors();
    case Job::fit:
        return tool.fit();
    case Job::record:
        return tool.record();
    default:
        return tool.status();
    }
}

// A page needs fonts, but no display.
std::unique_ptr<QCoreApplication> application_for(const Arguments& arguments, int& argc, char** argv) {
    if (arguments.job != Job::evidence || !is_pdf(arguments.output))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(argc, argv);
}

int run(const Arguments& arguments, int argc, char** argv) {
    const PrivateTemporary temporary;
    const Paths paths = process_paths();
    DaemonAccess daemon;
    const EndSignals signals(daemon.execute());
    daemon.host = arguments.host;
    if (const auto started = arguments.demo ? daemon.start_demonstration(paths) : Result<>(); !started)
        return exit_status(started);
    const auto application = application_for(arguments, argc, argv);
    Tool tool(arguments, paths, daemon, signals);
    if (const auto ready = arguments.demo ? daemon.wait_for_demonstration(paths) : Result<>(); !ready)
        return signals.asked() ? interrupted : exit_status(ready);
    return do_job(arguments, tool);
}

int print_all(int answer) {
    std::cout.flush();
    return std::cout ? answer : fail("The answer could not be written.");
}

} // namespace
} // namespace tickervantage

int main(int argc, char** argv) {
    using namespace tickervantage;
    ::prctl(PR_SET_NAME, "tickerctl"); // as it was started: lists of processes, and killall, know it by that name
    int status = 0;
    const auto arguments = read_arguments(argc, argv, status);
    if (!arguments)
        return status;
    qInstallMessageHandler(qt_message);
    if (arguments->job == Job::plot_meter || arguments->job == Job::plot_clock ||
        arguments->job == Job::plot_spectrum || arguments->job == Job::plot_tracking ||
        arguments->job == Job::plot_freqtemp || arguments->job == Job::plot_error ||
        arguments->job == Job::plot_sources) {
        QLocale::setDefault(QLocale::c()); // the same picture whoever draws it
        status = plot(*arguments, argc, argv);
        if (status == interrupted)
            end_as_asked();
        return status;
    }
    status = run(*arguments, argc, argv);
    // What has no end of its own is meant to be ended by a signal, though not by a reader that went away.
    const bool is_endless =
        arguments->watch_seconds > 0 || arguments->job == Job::follow || arguments->job == Job::record;
    if (!is_endless || status == interrupted || end_signal() == SIGPIPE)
        end_as_asked();
    return print_all(status);
}
