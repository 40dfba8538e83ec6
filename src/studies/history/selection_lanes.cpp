#include "studies/history/selection_lanes.h"

#include "chrony/truth/logged_rule.h"

#include <cmath>

namespace tickervantage {

SourceRow selection_row(const LogLine& line) {
    namespace column = selection_column;
    SourceRow row{.time = static_cast<std::int64_t>(std::floor(line.time())),
                  .source = std::string(line.texts[column::source]),
                  .letter = line.texts[column::state].front(),
                  .reach = static_cast<unsigned>(line.number(column::reach)) & 0xFFU};
    row.rule = rule_of_logged(row.letter, row.reach);
    const double low = line.number(column::low);
    const double high = line.number(column::high);
    const bool has_interval = !std::isnan(low) && !std::isnan(high) && (low != 0 || high != 0);
    if (has_interval)
        row.offset = Extent{.low = low, .mean = (low + high) / 2, .high = high};
    return row;
}

} // namespace tickervantage
