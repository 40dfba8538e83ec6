// What `tickerctl sources`, `explain`, `budget` and `probe` say, from a live reading as from a capture. The keys of the
// JSON documents are names that others rely on; what is not known is null, and "–" in the text.
#pragma once

#include "chrony/truth/explain.h"
#include "chrony/truth/probe.h"
#include "cli/json_text.h"
#include "cli/status/clock_reading.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace tickervantage {

// The answer in a few words, above what explains it.
void print_heading(const Headline& headline, std::ostream& out);

// 0, also for none.
int print_sources(const std::vector<JudgedSource>& sources, DocumentForm form, std::ostream& out);

// 0: one of them is in use; 1: none is.
int print_explanations(const std::vector<Explanation>& explanations, DocumentForm form, std::ostream& out);

// 0, or 1 where nothing vouches for a bound.
int print_budget(const ClockTruth& truth, DocumentForm form, std::ostream& out);

// 0: it answered; 1: it did not.
int print_probe(const ProbeRequest& request, const ProbeAnswer& answer, DocumentForm form, std::ostream& out);

// Why nothing is explained of a source that chronyd does not know: with those that it knows.
[[nodiscard]] std::string unknown_source(const std::string& source, const std::vector<Explanation>& known);

} // namespace tickervantage
