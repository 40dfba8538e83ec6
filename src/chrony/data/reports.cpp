#include "chrony/data/reports.h"

#include "base/failure_codes.h"
#include "base/local_clock.h"
#include "base/text_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <iterator>
#include <utility>

namespace tickervantage {
namespace {

// The rows of a report that was there; rows that do not fit become problems.
template <typename Row>
std::optional<std::vector<Row>> rows_of(const Capture& capture, const std::string& command,
                                        ReportRows<Row> (*read)(std::string_view), std::vector<Failure>& problems) {
    const auto found = capture.reports.find(command);
    if (found == capture.reports.end() || !found->second.refusal.empty())
        return std::nullopt;
    ReportRows<Row> report = read(found->second.text);
    for (const OddLine& odd : report.odd)
        problems.push_back({.code = FailureCode::odd_report_line,
                            .arguments = {command, std::to_string(odd.columns), odd.expected, odd.line}});
    return std::move(report.rows);
}

template <typename Row>
std::optional<Row> only_row(std::optional<std::vector<Row>> rows) {
    return rows && !rows->empty() ? std::optional(std::move(rows->front())) : std::nullopt;
}

std::optional<bool> steering_in(const Capture& capture) {
    const auto fact = capture.facts.find("steers");
    if (fact == capture.facts.end() || (fact->second != "yes" && fact->second != "no"))
        return std::nullopt;
    return fact->second == "yes";
}

// "501 Not authorised", "Could not open connection to daemon": no report has lines of one column.
bool is_refusal(std::string_view line) {
    return line.find(',') == std::string_view::npos;
}

struct Shape {
    std::ptrdiff_t columns;
    std::string_view report;
};

// Of chrony 4.2 to 4.8. Rows of "sources" and "authdata" have as many columns; the former begin with the mode.
constexpr auto shapes = std::to_array<Shape>({
    {14, "tracking"},
    {8, "sourcestats"},
    {5, "activity"},
    {18, "selectdata"},
    {10, "authdata"},
    {34, "ntpdata"},
    {38, "ntpdata"},
    {11, "serverstats"},
    {17, "serverstats"},
});

std::string_view report_of(std::string_view line) {
    if (!line.empty() && std::string_view("^=#").find(line.front()) != std::string_view::npos)
        return "sources";
    const auto* const shape = std::ranges::find(shapes, std::ranges::count(line, ',') + 1, &Shape::columns);
    return shape == shapes.end() ? std::string_view() : shape->report;
}

template <typename Number>
bool take_number(std::string_view& text, std::size_t digits, Number& number) {
    if (text.size() < digits)
        return false;
    const char* const end = text.data() + digits;
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    text.remove_prefix(digits);
    return error == std::errc() && stop == end && number >= 0;
}

bool take(std::string_view& text, char sign) {
    const bool there = text.starts_with(sign);
    text.remove_prefix(there ? 1 : 0);
    return there;
}

double fraction_in(std::string_view& text) {
    double fraction = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), fraction);
    const bool is_fraction = text.starts_with('.') && error == std::errc() && std::isfinite(fraction);
    if (is_fraction)
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return is_fraction ? fraction : 0;
}

} // namespace

ChronyReports reports_in(const Capture& capture) {
    ChronyReports reports;
    std::vector<Failure>& problems = reports.problems;
    if (const auto time = capture.facts.find("time"); time != capture.facts.end())
        reports.now = moment_in(time->second);
    reports.steers = steering_in(capture);
    reports.tracking = only_row(rows_of(capture, "tracking", read_tracking_csv, problems));
    reports.sources = rows_of(capture, "sources", read_sources_csv, problems);
    reports.statistics = rows_of(capture, "sourcestats", read_sourcestats_csv, problems);
    reports.activity = only_row(rows_of(capture, "activity", read_activity_csv, problems));
    reports.selection = rows_of(capture, "selectdata", read_selectdata_csv, problems);
    reports.authentication = rows_of(capture, "authdata", read_authdata_csv, problems);
    reports.ntp = rows_of(capture, "ntpdata", read_ntpdata_csv, problems);
    reports.server = only_row(rows_of(capture, "serverstats", read_serverstats_csv, problems));
    if (const auto named = rows_of(capture, "sources -N", read_sources_csv, problems); named && reports.sources)
        reports.names = names_of_sources(*reports.sources, *named);
    if (const auto tracking = capture.reports.find("tracking"); tracking != capture.reports.end())
        reports.refusal = tracking->second.refusal;
    return reports;
}

std::map<std::string, std::string> names_of_sources(const std::vector<SourceData>& sources,
                                                    const std::vector<SourceData>& named) {
    const auto same_row = [](const SourceData& one, const SourceData& other) {
        return one.mode == other.mode && one.poll == other.poll && one.stratum == other.stratum;
    };
    std::map<std::string, std::string> names;
    if (std::ranges::equal(sources, named, same_row))
        for (std::size_t row = 0; row < sources.size(); ++row)
            names[sources[row].source] = named[row].source;
    return names;
}

std::map<std::string, CapturedReport> divided_reports(std::string_view output, const std::vector<std::string>& asked) {
    std::map<std::string, CapturedReport> reports;
    auto turn = asked.begin();
    std::ptrdiff_t commas_above = 0;
    for (const std::string_view line : non_empty_lines(output)) {
        if (is_refusal(line)) {
            const bool next = !reports[*turn].text.empty() && turn + 1 != asked.end();
            reports[*(next ? turn + 1 : turn)].refusal = line;
            return reports;
        }
        // Lines of a shape that nobody knows begin the report whose turn is next, unless the lines above are as wide.
        const auto commas = std::ranges::count(line, ',');
        auto meant = std::ranges::find(asked, report_of(line));
        if (meant == asked.end()) {
            const bool begins = commas != commas_above && !reports[*turn].text.empty();
            meant = begins && turn + 1 != asked.end() ? turn + 1 : turn;
        }
        for (; turn < meant; ++turn)
            reports.try_emplace(*turn);
        reports[*meant].text += std::string(line) + '\n';
        commas_above = commas;
    }
    if (!reports.empty())
        for (; turn != asked.end(); ++turn)
            reports.try_emplace(*turn);
    return reports;
}

std::optional<double> moment_in(std::string_view text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    if (!take_number(text, 4, year) || !take(text, '-') || !take_number(text, 2, month) || !take(text, '-') ||
        !take_number(text, 2, day) || !take(text, 'T') || !take_number(text, 2, hours) || !take(text, ':') ||
        !take_number(text, 2, minutes) || !take(text, ':') || !take_number(text, 2, seconds))
        return std::nullopt;
    const double fraction = fraction_in(text);
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    if (text != "Z" || !date.ok() || hours > 23 || minutes > 59 || seconds > 60)
        return std::nullopt;
    const auto days = std::chrono::sys_days(date).time_since_epoch().count();
    return static_cast<double>(days) * 86400 + hours * 3600 + minutes * 60 + seconds + fraction;
}

std::string text_of_moment(double seconds_since_1970) {
    return utc_stamp(static_cast<std::int64_t>(std::floor(seconds_since_1970)));
}

} // namespace tickervantage
