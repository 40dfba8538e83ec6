// Why chronyd uses a source or does not, in sentences with the numbers that decided, and what would change it.
// Sources: chronyc(1), selectdata; chrony.conf(5), the directives of source selection. Pure functions, any thread.
#pragma once

#include "base/sentence.h"
#include "chrony/truth/configuration_lines.h"
#include "chrony/truth/judged_source.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct Explanation {
    std::string source;
    std::optional<std::string> name;
    char letter = '?';
    SelectionRule rule = SelectionRule::unknown;
    std::vector<Sentence> sentences;
    std::vector<Sentence> remedies; // each names its directive; none where nothing is to be done
    std::optional<SourceLine> line; // of the configuration
};

// One for each source, in chronyc's order.
[[nodiscard]] std::vector<Explanation> explain(const ChronyReports& reports,
                                               const std::vector<CapturedFile>& configuration);

// The same of sources that were judged before.
[[nodiscard]] std::vector<Explanation> explain(const std::vector<JudgedSource>& sources,
                                               const std::vector<CapturedFile>& configuration);

// Those with this address, name or reference ID.
[[nodiscard]] std::vector<Explanation> explanations_of(std::vector<Explanation> explanations, std::string_view source);

} // namespace tickervantage
