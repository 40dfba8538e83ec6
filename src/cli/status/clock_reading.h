// What a question about the clock is answered from: chronyd as it is now, a capture, or a saved tracking report. Pure
// functions.
#pragma once

#include "chrony/data/reports.h"
#include "chrony/truth/headline.h"
#include "chrony/truth/verdict.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct ClockReading {
    ChronyReports reports;
    std::vector<CapturedFile> configuration;
    std::vector<double> offsets = {}; // s: the newest ones of the tracking log
};

[[nodiscard]] ClockReading reading_of(const Capture& capture);

// Of a saved tracking report: what it says in place of one is the refusal.
[[nodiscard]] ClockReading reading_of_text(std::string_view tracking);

[[nodiscard]] std::optional<ErrorBudget> budget_of(const ClockReading& reading);
[[nodiscard]] std::optional<double> expected_of(const ClockReading& reading);
[[nodiscard]] Headline headline_of(const ClockReading& reading);

// The headline as one line: "Holdover since 02:14: none of 3 sources answers."
[[nodiscard]] std::string verdict_line(const Headline& headline);

// What stands in the way of an answer, or of a part of it: a sentence for each kind of line that does not fit, and why
// there is no report at all.
[[nodiscard]] std::vector<std::string> complaints_of(const ChronyReports& reports);

} // namespace tickervantage
