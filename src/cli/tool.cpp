#include "cli/tool.h"

#include "chrony/reports/versions.h"
#include "chrony/status/refresh.h"
#include "cli/admin/admin_command.h"
#include "cli/logs/follow_command.h"
#include "cli/status/status_command.h"
#include "cli/terminal.h"
#include "linux/posix_followed_file.h"
#include "roothelper/client/terminal_agent.h"
#include "roothelper/jobs/distribution_chrony.h"
#include "settings/settings_catalogue.h"
#include "settings/warning_register.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

// A program that was ended because of a signal is no news to whoever sent the signal.
void complain_of(const ExecuteResult& result) {
    if (result.failure && result.outcome != ExecuteOutcome::cancelled)
        complain(english(*result.failure));
}

} // namespace

void TerminalLogger::log(LogLevel, std::string_view sentence) {
    const std::lock_guard lock(m_mutex);
    m_sentences.emplace_back(sentence);
}

void TerminalLogger::tell(std::string_view but_for) {
    const std::lock_guard lock(m_mutex);
    for (const auto& sentence : std::exchange(m_sentences, {}))
        if (sentence != but_for)
            complain(sentence);
}

Tool::Tool(const Arguments& arguments, Paths paths, DaemonAccess& daemon, const EndSignals& signals)
    : m_arguments(arguments), m_paths(std::move(paths)), m_daemon(daemon), m_signals(signals),
      m_store(m_paths.settings, m_queue, m_logger), m_settings(m_store) {
    m_logger.tell(); // what was wrong with the settings file
}

PreferencesGeneral Tool::general() {
    const auto file_exists = [](const std::string& path) {
        std::error_code ignored; // what cannot be looked at counts as missing
        return std::filesystem::exists(path, ignored);
    };
    auto general = PreferencesGeneral::load(m_settings, usual_chrony_paths(file_exists));
    WarningRegister warnings(m_settings);
    if (::isatty(STDERR_FILENO) == 1 && tell_unasked_choice(general, warnings, std::cerr))
        (void)m_store.finish(std::chrono::seconds(1)); // a note that cannot be kept is told again, which is no failure
    return general;
}

ChronyPrograms Tool::programs() {
    const auto paths = general();
    return {m_paths.bundle, paths.chronyc, paths.chronyd};
}

std::optional<meterView> Tool::view() const {
    if (m_arguments.meter)
        return meter_view_named(*m_arguments.meter);
    const auto stored = load(m_settings, settings::meter_view);
    return stored >= 0 && stored < meter_view_count ? static_cast<meterView>(stored) : meterView::lastoffset;
}

int Tool::read_input(std::string& text, std::size_t limit) const {
    std::array<char, 65536> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) {
            if (m_signals.asked())
                return interrupted;
            continue;
        }
        if (count < 0)
            return fail("Standard input cannot be read: " + std::generic_category().message(errno) + ".");
        if (count == 0)
            return 0;
        text.append(buffer.data(), static_cast<std::size_t>(count));
        if (text.size() > limit)
            return fail("Standard input is longer than any report.");
    }
}

int Tool::status() {
    const auto shown = view();
    if (!shown)
        return fail("There is no meter view \"" + *m_arguments.meter +
                    "\"; there are systemtime, lastoffset, rmsoffset, rootdelay, rootdispersion and frequency.");
    return watch([&] {
        ClockTruth reading;
        const int result = read_clock(CaptureDepth::with_names, SavedForm::capture_or_report, reading);
        return result != 0 ? result : print_status(reading, *shown, form(), std::cout);
    });
}

int Tool::version_report() {
    const auto ask = [this, asked = programs()](std::string_view program) {
        return version_query(m_daemon.execute(), asked, program);
    };
    const ExecuteResult chronyd = ask(bundle_chronyd);
    const ExecuteResult chronyc = ask(bundle_chronyc);
    std::cout << version_text(chronyd.output, chronyc.output) << '\n';
    complain_of(chronyd.failure ? chronyd : chronyc);
    return chronyd.failure || chronyc.failure ? has_failed : 0;
}

// Root reaches the daemon's socket itself; another machine's daemon, and a demonstration's, are not the helper's.
bool Tool::needs_helper() const {
    return is_privileged_report(m_arguments.report.front()) && m_daemon.host.empty() && ::geteuid() != 0;
}

int Tool::privileged_report() {
    RefreshRequest request;
    if (report_request(m_arguments.report, request) != 0)
        return fail("Through the root helper this report is given without options; ntpdata takes one server.");
    request.runner = std::make_shared<Runchronyc>(m_daemon.runner(m_settings, programs()));
    request.resolve = !load(m_settings, settings::ip_address);
    request.original = load(m_settings, settings::original_name);
    const TerminalAgent agent;
    if (!m_daemon.actions().blessHelper())
        return answer_is_no; // the reason was told when it came up
    const ReportText report = read_privileged_report(request);
    std::cout << report.output;
    if (report.problem)
        complain(english(*report.problem));
    return is_report(report.output) ? 0 : answer_is_no;
}

int Tool::report() {
    std::string command;
    for (const auto& word : m_arguments.report)
        command += (command.empty() ? "" : " ") + word;
    if (command.empty())
        return fail("Which report? For example: tickerctl report sources -v");
    if (command == "version")
        return version_report();
    if (needs_helper())
        return privileged_report();
    const ExecuteResult result = m_daemon.runner(m_settings, programs()).run(command);
    std::cout << result.output;
    complain_of(result);
    if (result.outcome != ExecuteOutcome::exited)
        return has_failed;
    return result.exit_status == 0 ? 0 : answer_is_no;
}

SpectrumChoice Tool::spectrum_choice() const {
    return {.log = m_arguments.log,
            .series = m_arguments.series,
            .interval = m_arguments.interval.value_or(load(m_settings, settings::SPECTRUM_interval)),
            .duration = m_arguments.duration.value_or(load(m_settings, settings::SPECTRUM_duration))};
}

int Tool::tracking_plot(TrackingPlot& plot) const {
    plot.log = m_arguments.log;
    plot.settings = TrackingSettings::load(m_settings);
    plot.hours = m_arguments.hours;
    auto& legend = plot.settings.legend;
    legend.use_logscale = m_arguments.logarithmic || (legend.use_logscale && !m_arguments.linear);
    plot.settings.hZoom = m_arguments.hzoom.value_or(plot.settings.hZoom);
    plot.settings.vZoom = m_arguments.vzoom.value_or(plot.settings.vZoom);
    plot.settings.vScale = m_arguments.vscale.value_or(plot.settings.vScale);
    if (m_arguments.shown_series && choose_series(*m_arguments.shown_series, legend) != 0)
        return fail("There is no such series in \"" + *m_arguments.shown_series +
                    "\"; there are offset, mean_offset, " +
                    "rms_offset, offset_sd, rem_cor, mean_rem_cor, rms_rem_cor, rootdispersion and frequency.");
    if (!m_arguments.end)
        return 0;
    plot.end = parse_log_time(*m_arguments.end);
    return plot.end ? 0 : fail("A time is written as 2026-11-21T02:15:03Z, not \"" + *m_arguments.end + "\".");
}

int Tool::read_spectrum(ComputedSpectrum& spectrum) const {
    PosixFollowedFiles files;
    auto computed = spectrum_of_log(files, spectrum_choice());
    if (m_signals.asked())
        return interrupted;
    return exit_status(computed.map([&](ComputedSpectrum& one) { spectrum = std::move(one); }));
}

int Tool::spectrum() {
    ComputedSpectrum spectrum;
    if (const int result = read_spectrum(spectrum); result != 0)
        return result;
    print_spectrum(spectrum, spectrum_choice(), m_arguments.json ? OutputForm::json : OutputForm::text, std::cout);
    return 0;
}

int Tool::follow() const {
    PosixFollowedFiles files;
    const FollowForm form = m_arguments.json ? FollowForm::json : FollowForm::text;
    return follow_log(m_arguments.log, files, form, std::cout, [&] {
        constexpr double day = 86400; // poll() knows no "for ever" in seconds
        const double limit = m_arguments.for_seconds;
        if (limit > 0)
            (void)m_signals.asked_within(limit);
        else
            while (!m_signals.asked_within(day)) {
            }
    });
}

SettingsCommand Tool::settings_command() {
    const auto finish = [this] {
        auto saved = m_store.finish(std::chrono::seconds(5));
        m_logger.tell(saved ? std::string() : english(saved.error()));
        return saved;
    };
    return {m_store, finish, std::cout, std::cerr};
}

} // namespace tickervantage
