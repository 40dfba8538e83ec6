#include "chrony/truth/clock_truth.h"

#include "chrony/truth/configuration_lines.h"

#include <utility>

namespace tickervantage {

ClockTruth clock_truth(ChronyReports reports, const std::vector<CapturedFile>& configuration,
                       const std::vector<double>& newest_offsets) {
    const double clock_error =
        ConfigurationLines(configuration).number("maxclockerror").value_or(default_maxclockerror_ppm);
    ClockTruth truth{.verdict = judge(reports),
                     .budget = error_budget(reports, clock_error),
                     .expected = expected_error(reports, newest_offsets),
                     .sources = judged_sources(reports)};
    truth.explanations = explain(truth.sources, configuration);
    truth.reports = std::move(reports);
    return truth;
}

} // namespace tickervantage
