#include "chrony/status/refresh.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/data/live_capture.h"
#include "chrony/truth/newest_offsets.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

namespace tickervantage {
namespace {

ReportText shortened(std::string output, std::optional<Failure> problem) {
    if (limit_lines(output) && !problem)
        problem = Failure{.code = FailureCode::lines_left_out, .arguments = {std::to_string(most_lines)}};
    return {std::move(output), std::move(problem)};
}

ReportText run_command(const RefreshRequest& request, const ExecuteResult& data) {
    // A chronyc that could not be run, or hung, a moment ago would only do so again.
    if (request.command == "version" || is_privileged_report(request.command) || data.outcome != ExecuteOutcome::exited)
        return {};
    ExecuteResult result = request.runner->run(request.command);
    return shortened(std::move(result.output), std::move(result.failure));
}

} // namespace

bool is_privileged_report(const std::string& command) {
    static constexpr std::array<std::string_view, 5> reports{"authdata", "ntpdata", "selectdata", "clients",
                                                             "serverstats"};
    return std::ranges::find(reports, command) != reports.end();
}

int report_request(const std::vector<std::string>& words, RefreshRequest& request) {
    if (words.empty() || !is_privileged_report(words.front()))
        return -1;
    const bool names_server = words.size() == 2 && words.front() == "ntpdata";
    const bool says_all =
        words.size() == 2 && words.front() == "authdata" && words[1] == "-a"; // it is asked for anyway
    if (words.size() != 1 && !names_server && !says_all)
        return -1;
    request.command = words.front();
    request.server = names_server ? words[1] : std::string();
    return 0;
}

// chronyc's replies have numbers of three digits: 2 and 5 begin those of success and failure, as in other protocols.
bool is_report(std::string_view text) {
    const auto is_digit = [](char one) {
        return one >= '0' && one <= '9';
    };
    const bool is_failure =
        text.size() > 3 && text[0] == '5' && is_digit(text[1]) && is_digit(text[2]) && text[3] == ' ';
    return !is_failure && !trimmed(text).empty();
}

std::string silence_sentence(std::string_view tracking) {
    constexpr std::size_t longest = 200; // bytes of chronyc's complaint
    const auto said = trimmed(tracking.substr(0, longest));
    return said.empty() ? "chronyd gave no answer." : "chronyd gave no answer: " + std::string(said);
}

bool limit_lines(std::string& text) {
    const auto continues_character = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    std::string result;
    result.reserve(text.size());
    std::size_t lines = 0;
    std::size_t column = 0;
    for (const char byte : text) {
        const bool too_long = column == longest_line && byte != '\n' && !continues_character(byte);
        if (too_long)
            result += '\n';
        if (too_long || byte == '\n') {
            column = 0;
            if (++lines == most_lines)
                break;
        }
        result += byte;
        column += byte == '\n' || continues_character(byte) ? 0U : 1U;
    }
    text = std::move(result);
    return lines == most_lines;
}

namespace {

// The first words of the table's lines. The heading is two or three lines long, by chronyc's version, and always ends
// with a ruler.
std::vector<std::string> table_names(const std::string& sourcestats) {
    const auto lines = non_empty_lines(sourcestats);
    auto line = std::ranges::find_if(lines, [](std::string_view one) { return one.starts_with("==="); });
    std::vector<std::string> names;
    for (line += line == lines.end() ? 0 : 1; line != lines.end(); ++line)
        if (auto name = first_words(*line, 1); !name.empty())
            names.push_back(std::move(name));
    return names;
}

std::vector<std::string> value_names(const std::string& values) {
    std::vector<std::string> names;
    for (const auto line : non_empty_lines(values))
        if (const auto comma = line.find(','); comma != std::string_view::npos)
            names.emplace_back(line.substr(0, comma));
    return names;
}

bool is_cut(const std::string& name) {
    return name.ends_with('>');
}

std::optional<std::vector<std::string>> read_servers(const Runchronyc& runner) {
    const std::string table = runner.run("sourcestats").output;
    return server_names(table, has_cut_names(table) ? runner.run_for_values("sourcestats").output : std::string());
}

} // namespace

bool has_cut_names(const std::string& sourcestats) {
    return std::ranges::any_of(table_names(sourcestats), is_cut);
}

std::optional<std::vector<std::string>> server_names(const std::string& sourcestats, const std::string& whole) {
    auto names = table_names(sourcestats);
    if (names.empty())
        return std::nullopt;
    const auto whole_names = value_names(whole);
    for (std::size_t line = 0; line < names.size(); ++line)
        if (is_cut(names[line]) && whole_names.size() == names.size())
            names[line] = whole_names[line];
    std::ranges::sort(names);
    return names;
}

namespace {

double seconds_now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::vector<std::string> addresses_in(const ChronyReports& reports) {
    std::vector<std::string> addresses;
    for (const SourceData& source : reports.sources.value_or(std::vector<SourceData>()))
        addresses.push_back(source.source);
    return addresses;
}

} // namespace

std::shared_ptr<const ClockTruth> truth_of(const TruthBasis& basis, const ExecuteResult* root) {
    Capture capture = basis.capture;
    if (root != nullptr)
        add_root_reports(*root, capture);
    ChronyReports reports = reports_in(capture);
    if (!reports.tracking && basis.tracking) {
        reports.tracking = basis.tracking;
        if (reports.sources && reports.sources->empty())
            reports.sources.reset(); // lines that could not be told apart, rather than no sources
    }
    reports.now = basis.now;
    reports.steers = basis.steers;
    reports.names = basis.names;
    const auto configuration =
        basis.configuration.empty() ? std::vector<CapturedFile>() : read_configuration(basis.configuration);
    return std::make_shared<const ClockTruth>(
        clock_truth(std::move(reports), configuration, newest_offsets(configuration)));
}

namespace {

// chronyd may well be there although its report as data cannot be read: other versions of chronyc may print others.
void read_tracking_text(const RefreshRequest& request, TruthBasis& basis, RefreshReading& reading) {
    reading.silence =
        request.command == "tracking" ? reading.report_text.output : request.runner->run("tracking").output;
    reading.report = parse_tracking(reading.silence);
    basis.tracking = tracking_in_text(reading.silence);
    if (basis.tracking)
        reading.truth = truth_of(basis, request.root_reports.get());
}

} // namespace

RefreshReading read_status(const RefreshRequest& request, RefreshTools& tools) {
    RefreshReading reading;
    reading.gpsd_application_found = tools.gpsd_application_found();
    const ExecuteResult data = run_open_reports(*request.runner);
    reading.failure = data.failure;
    reading.discipline = tools.running_check.check();
    reading.report_text = run_command(request, data);
    TruthBasis basis{.capture = capture_of_open_reports(data),
                     .now = seconds_now(),
                     .steers = steers(reading.discipline),
                     .names = tools.names.names,
                     .configuration = request.configuration};
    reading.truth = truth_of(basis, request.root_reports.get());
    const ChronyReports& reports = reading.truth->reports;
    reading.silence = reports.refusal;
    if (reports.tracking)
        reading.report = report_of(*reports.tracking);
    else if (reports.refusal.empty() && data.outcome == ExecuteOutcome::exited)
        read_tracking_text(request, basis, reading);
    reading.has_new_sources = addresses_in(reading.truth->reports) != tools.names.addresses;
    reading.basis = std::make_shared<const TruthBasis>(std::move(basis));
    if (request.list_servers && data.outcome == ExecuteOutcome::exited)
        reading.servers = read_servers(*request.runner);
    return reading;
}

void read_names(const Runchronyc& runner, const ChronyReports& reports, RefreshTools& tools) {
    const ExecuteResult run = run_for_names(runner);
    tools.names = {.addresses = addresses_in(reports), .names = {}};
    if (reports.sources && run.exit_status == 0)
        tools.names.names = names_of_sources(*reports.sources, read_sources_csv(run.output).rows);
}

ReportText read_privileged_report(const RefreshRequest& request) {
    const bool authdata = request.command == "authdata";
    const bool ntpdata = request.command == "ntpdata";
    return shortened(request.runner->run_privileged(request.resolve, request.original,
                                                    authdata ? request.command + " -a" : request.command,
                                                    ntpdata ? request.server : std::string()),
                     {});
}

} // namespace tickervantage
