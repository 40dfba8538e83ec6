// What `tickerctl evidence` prints and writes. Pure functions.
#pragma once

#include "cli/json_text.h"
#include "studies/evidence/evidence_files.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

[[nodiscard]] Json evidence_json(const Evidence& evidence, const std::vector<EvidenceFile>& files);

// "2.5ms", "100 us", "0.01": seconds. None for anything else, and for 0 and less.
[[nodiscard]] std::optional<double> limit_in(std::string_view text);

} // namespace tickervantage
