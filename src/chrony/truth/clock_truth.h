// All that one reading of chrony's reports amounts to: the verdict, how far off the clock can be, and each source with
// why it is used or not. Pure functions, any thread.
#pragma once

#include "chrony/truth/explain.h"
#include "chrony/truth/judged_source.h"
#include "chrony/truth/verdict.h"

#include <optional>
#include <vector>

namespace tickervantage {

struct ClockTruth {
    ChronyReports reports = {};
    Verdict verdict = Verdict::unavailable;
    std::optional<ErrorBudget> budget = {};     // none: nothing vouches for a bound
    std::optional<double> expected = {};        // s, with 95 %
    std::vector<JudgedSource> sources = {};     // in chronyc's order
    std::vector<Explanation> explanations = {}; // one for each source
};

// The offsets: of the tracking log, as expected_error() has them.
[[nodiscard]] ClockTruth clock_truth(ChronyReports reports, const std::vector<CapturedFile>& configuration,
                                     const std::vector<double>& newest_offsets = {});

} // namespace tickervantage
