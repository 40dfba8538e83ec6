// `tickerctl health`, `metrics` and `rules`.
#include "base/failure_codes.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "cli/watch/health_command.h"
#include "linux/small_file.h"
#include "watch/metrics.h"
#include "watch/prometheus_rules.h"
#include "watch/watch_settings.h"

#include <sys/stat.h>

#include <cerrno>
#include <iostream>
#include <utility>

namespace tickervantage {
namespace {

// Others read it: the node exporter runs as a user of its own, whatever this one's umask is.
Result<> replace_public_file(const std::string& path, const std::string& text) {
    constexpr mode_t readable = 0644;
    const mode_t umask_before = ::umask(0022);
    auto written = replace_small_file(path, text, readable);
    ::umask(umask_before);
    if (written && ::chmod(path.c_str(), readable) != 0) // one that was there kept its mode
        return failed(FailureCode::cannot_write, {path}, errno);
    return written;
}

} // namespace

HealthAnswer Tool::saved_health(const HealthLimits& limits) {
    std::string text;
    if (*m_arguments.from == "-") {
        if (read_input(text, largest_capture) != 0)
            return unknown_health("Standard input cannot be read.");
    } else {
        FileReading file = read_small_file(*m_arguments.from, largest_capture);
        if (file.outcome != FileReading::Outcome::read)
            return unknown_health(english(reading_failure(*m_arguments.from, file)));
        text = std::move(file.bytes);
    }
    const auto capture = parse_capture(text);
    return capture ? tickervantage::health(reports_in(*capture), limits) : unknown_health(english(capture.error()));
}

int Tool::health() {
    std::string complaint;
    const auto limits = limits_of(m_arguments.health, complaint);
    if (!limits)
        return print_health(unknown_health(complaint), std::cout);
    if (m_arguments.from)
        return print_health(saved_health(*limits), std::cout);
    TimedExecute execute(m_daemon.execute(), m_arguments.health.time_limit);
    return print_health(live_health(m_daemon.runner(m_settings, programs(), execute), *limits), std::cout);
}

int Tool::metrics() {
    ClockTruth reading;
    if (m_arguments.from) {
        if (const int result = read_saved(SavedForm::capture, reading); result != 0)
            return result;
    } else {
        reading = reading_of(live_capture(CaptureDepth::with_names));
    }
    if (m_signals.asked())
        return interrupted;
    tell_once(complaints_of(reading.reports));
    const bool is_open = m_arguments.metrics.format == "openmetrics";
    const std::string text = metrics_text(reading, is_open ? MetricsFormat::openmetrics : MetricsFormat::prometheus);
    if (m_arguments.metrics.textfile.empty())
        std::cout << text << std::flush;
    else if (const auto written = replace_public_file(m_arguments.metrics.textfile, text); !written)
        return fail(english(written.error()));
    return 0;
}

int Tool::rules() const {
    const std::vector<WatchRule> rules = watch_rules(load_thresholds(m_settings));
    std::cout << (m_arguments.rules.tests ? prometheus_tests(rules) : prometheus_rules(rules)) << std::flush;
    return 0;
}

} // namespace tickervantage
