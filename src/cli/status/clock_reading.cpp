#include "cli/status/clock_reading.h"

#include "base/text_lines.h"
#include "chrony/reports/tracking_report.h"
#include "chrony/status/refresh.h"

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

ClockTruth reading_of(const Capture& capture, const std::vector<double>& newest_offsets) {
    return clock_truth(reports_in(capture), capture.configuration, newest_offsets);
}

ClockTruth reading_of_text(std::string_view tracking) {
    ChronyReports reports;
    reports.tracking = tracking_in_text(tracking);
    const auto said = trimmed(tracking.substr(0, tracking.find('\n')));
    if (!reports.tracking)
        reports.refusal = is_plain(said) ? said : "the text is no tracking report";
    return clock_truth(std::move(reports), {});
}

Headline headline_of(const ClockTruth& truth) {
    return headline(truth.reports, truth.budget, truth.expected);
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
