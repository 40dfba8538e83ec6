// What a question about the clock is answered from: chronyd as it is now, a capture, or a saved tracking report. Pure
// functions.
#pragma once

#include "chrony/truth/clock_truth.h"
#include "chrony/truth/headline.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// With the newest offsets of the tracking log, where there is one.
[[nodiscard]] ClockTruth reading_of(const Capture& capture, const std::vector<double>& newest_offsets = {});

// Of a saved tracking report: what it says in place of one is the refusal.
[[nodiscard]] ClockTruth reading_of_text(std::string_view tracking);

[[nodiscard]] Headline headline_of(const ClockTruth& truth);

// The headline as one line: "Holdover since 02:14: none of 3 sources answers."
[[nodiscard]] std::string verdict_line(const Headline& headline);

// What stands in the way of an answer, or of a part of it: a sentence for each kind of line that does not fit, and why
// there is no report at all.
[[nodiscard]] std::vector<std::string> complaints_of(const ChronyReports& reports);

} // namespace tickervantage
