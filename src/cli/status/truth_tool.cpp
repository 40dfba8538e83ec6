// `tickerctl capture`, `sources`, `explain`, `budget` and `probe`, with this machine's chronyd.
#include "base/failure_codes.h"
#include "chrony/reports/versions.h"
#include "chrony/truth/newest_offsets.h"
#include "cli/status/truth_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "linux/small_file.h"
#include "linux/user_name.h"
#include "roothelper/client/terminal_agent.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t largest_report = 1U << 20U; // bytes

constexpr const char* lacking_capture =
    "\nThis capture lacks what chronyd tells root only: tickerctl capture --root takes it along.\n";
constexpr const char* lacking_rights = "\nchronyd tells root more of its sources: tickerctl explain --root\n";

std::string host_name() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "unknown";
}

// Unless that was told already.
int fail_without_sources(const ChronyReports& reports) {
    return complaints_of(reports).empty() ? fail("There is no report of chronyd's sources.") : has_failed;
}

// "4.3" out of "chronyc (chrony) version 4.3"
std::string version_in(const ProgramVersion& version) {
    const auto blank = version.label.rfind(' ');
    return version.meaningless || blank == std::string::npos ? "unknown" : version.label.substr(blank + 1);
}

} // namespace

std::string Tool::configuration_path() {
    if (m_arguments.configuration)
        return *m_arguments.configuration;
    if (!m_daemon.configuration().empty())
        return m_daemon.configuration();
    return m_daemon.host.empty() ? general().config : ""; // who knows where another daemon's lies
}

// The helper knows the machine's own daemon only.
int Tool::ask_for_root() {
    const bool is_own = !m_arguments.from && m_daemon.host.empty();
    if (!m_arguments.as_root || !is_own || ::geteuid() == 0)
        return 0;
    const TerminalAgent agent;
    return m_daemon.actions().blessHelper() ? 0 : has_failed; // the reason was told when it came up
}

Capture Tool::live_capture(CaptureDepth depth) {
    Capture capture = read_capture(m_daemon.runner(m_settings, programs()), depth);
    if (const std::string path = configuration_path(); !path.empty())
        capture.configuration = read_configuration(path);
    return capture;
}

int Tool::read_saved_text(std::string& text) const {
    if (*m_arguments.from == "-")
        return read_input(text, largest_capture);
    FileReading file = read_small_file(*m_arguments.from, largest_capture);
    if (file.outcome != FileReading::Outcome::read)
        return fail_to_read(*m_arguments.from, file);
    text = std::move(file.bytes);
    return 0;
}

int Tool::read_saved(SavedForm wanted, ClockTruth& reading) const {
    std::string text;
    if (const int result = read_saved_text(text); result != 0)
        return result;
    if (wanted == SavedForm::capture_or_report && !is_capture(text)) {
        if (text.size() > largest_report)
            return fail(english(failed(FailureCode::is_larger_than, {std::to_string(largest_report)}).value()));
        reading = reading_of_text(text);
        return 0;
    }
    const auto capture = parse_capture(text);
    if (!capture)
        return fail(english(capture.error()));
    reading = reading_of(*capture);
    return 0;
}

int Tool::read_clock(CaptureDepth depth, SavedForm wanted, ClockTruth& reading) {
    if (m_arguments.from) {
        if (const int result = read_saved(wanted, reading); result != 0)
            return result;
    } else {
        const Capture capture = live_capture(depth);
        reading = reading_of(capture, newest_offsets(capture.configuration));
    }
    if (m_signals.asked()) // what was read was cut short
        return interrupted;
    tell_once(complaints_of(reading.reports));
    return 0;
}

// Each once: a clock may be watched for hours.
void Tool::tell_once(const std::vector<std::string>& complaints) {
    for (const std::string& complaint : complaints)
        if (std::ranges::find(m_told, complaint) == m_told.end())
            complain(complaint);
    m_told = complaints;
}

DocumentForm Tool::form() const {
    if (!m_arguments.json)
        return DocumentForm::text;
    return m_arguments.watch_seconds > 0 ? DocumentForm::json_line : DocumentForm::json;
}

int Tool::watch(const std::function<int()>& answer_once) {
    int answer = interrupted;
    while (true) {
        const int now = answer_once();
        if (now == interrupted)
            return answer;
        answer = now;
        const bool once = m_arguments.watch_seconds <= 0 || answer == has_failed;
        if (once || !std::cout || m_signals.asked_within(m_arguments.watch_seconds))
            return answer;
        if (form() == DocumentForm::text)
            std::cout << '\n';
    }
}

int Tool::sources() {
    if (const int result = ask_for_root(); result != 0)
        return result;
    return watch([this] {
        ClockTruth reading;
        if (const int result = read_clock(CaptureDepth::with_root, SavedForm::capture, reading); result != 0)
            return result;
        return reading.reports.sources ? print_sources(reading.sources, form(), std::cout)
                                       : fail_without_sources(reading.reports);
    });
}

int Tool::explain() {
    ClockTruth reading;
    if (const int result = ask_for_root(); result != 0)
        return result;
    if (const int result = read_clock(CaptureDepth::with_root, SavedForm::capture, reading); result != 0)
        return result;
    if (!reading.reports.sources)
        return fail_without_sources(reading.reports);
    auto explanations = std::move(reading.explanations);
    if (m_arguments.source) {
        auto wanted = explanations_of(explanations, *m_arguments.source);
        if (wanted.empty())
            return fail(unknown_source(*m_arguments.source, explanations));
        explanations = std::move(wanted);
    } else if (form() == DocumentForm::text) {
        print_heading(headline_of(reading), std::cout);
    }
    const int answer = print_explanations(explanations, form(), std::cout);
    if (form() == DocumentForm::text && !explanations.empty() && !reading.reports.selection)
        std::cout << (m_arguments.from ? lacking_capture : lacking_rights);
    return answer;
}

int Tool::budget() {
    ClockTruth reading;
    const int result = read_clock(CaptureDepth::with_names, SavedForm::capture, reading);
    return result != 0 ? result : print_budget(reading, form(), std::cout);
}

int Tool::capture() {
    if (const int result = ask_for_root(); result != 0)
        return result;
    Capture capture = live_capture(CaptureDepth::with_root);
    const auto version_of = [this, asked = programs()](std::string_view program) {
        return version_in(read_version(version_query(m_daemon.execute(), asked, program)));
    };
    capture.facts["chronyc"] = version_of(bundle_chronyc);
    capture.facts["chronyd"] = version_of(bundle_chronyd);
    capture.facts["host"] = host_name();
    if (m_signals.asked())
        return interrupted;
    if (m_arguments.output.empty())
        std::cout << to_text(capture) << std::flush;
    else if (const auto written = replace_small_file(m_arguments.output, to_text(capture)); !written)
        return fail(english(written.error()));
    const ChronyReports reports = reports_in(capture);
    tell_once(complaints_of(reports));
    return reports.tracking ? 0 : answer_is_no;
}

int Tool::probe() {
    const ProbeRequest request{.host = m_arguments.source.value_or(""),
                               .port = m_arguments.port,
                               .nts = m_arguments.nts,
                               .time_limit = m_arguments.timeout_seconds,
                               .chronyd = choose_program(programs().chronyd, programs(), bundle_chronyd),
                               .user = user_name(::geteuid())};
    const ProbeAnswer answer = tickervantage::probe(m_daemon.execute(), request);
    if (m_signals.asked())
        return interrupted;
    if (answer.failure && answer.failure->code == FailureCode::no_server_name)
        return fail(english(*answer.failure));
    return print_probe(request, answer, form(), std::cout);
}

} // namespace tickervantage
