#include "cli/status/clock_reading.h"

#include "base/text_lines.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/status/refresh.h"
#include "chrony/truth/configuration_lines.h"

#include <algorithm>
#include <map>
#include <utility>

namespace tickervantage {

namespace {

// As chronyc's own words are.
bool is_plain(std::string_view text) {
    return std::ranges::all_of(text, [](char sign) { return sign >= ' ' && sign <= '~'; });
}

} // namespace

ClockReading reading_of(const Capture& capture) {
    return {.reports = reports_in(capture), .configuration = capture.configuration};
}

ClockReading reading_of_text(std::string_view tracking) {
    ClockReading reading;
    reading.reports.tracking = tracking_in_text(tracking);
    const auto said = trimmed(tracking.substr(0, tracking.find('\n')));
    if (!reading.reports.tracking)
        reading.reports.refusal = is_plain(said) ? said : "the text is no tracking report";
    return reading;
}

std::optional<ErrorBudget> budget_of(const ClockReading& reading) {
    const ConfigurationLines lines(reading.configuration);
    return error_budget(reading.reports, lines.number("maxclockerror").value_or(default_maxclockerror_ppm));
}

std::optional<double> expected_of(const ClockReading& reading) {
    return expected_error(reading.reports, reading.offsets);
}

Headline headline_of(const ClockReading& reading) {
    return headline(reading.reports, budget_of(reading), expected_of(reading));
}

std::string verdict_line(const Headline& headline) {
    const std::string name = english(headline.name);
    return headline.reason ? name + ": " + english(*headline.reason) : name + '.';
}

std::vector<std::string> complaints_of(const ChronyReports& reports) {
    std::vector<std::string> complaints;
    std::map<std::pair<std::string, std::string>, int> told; // by report and number of columns
    for (const Failure& problem : reports.problems)
        if (told[{problem.arguments[0], problem.arguments[1]}]++ == 0)
            complaints.push_back(english(problem));
    if (!reports.tracking && complaints.empty())
        complaints.push_back(silence_sentence(reports.refusal));
    return complaints;
}

} // namespace tickervantage
