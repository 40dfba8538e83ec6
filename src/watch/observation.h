// The quantities of the rules, taken from one reading. Pure functions, any thread.
#pragma once

#include "chrony/truth/judged_source.h"
#include "chrony/truth/verdict.h"
#include "watch/rules.h"

#include <array>
#include <optional>
#include <vector>

namespace tickervantage {

// What a cause makes of others is absent, so that one trouble raises one alarm: in holdover the usable sources are not
// counted, and a clock that follows nothing was not set by its sources.
class WatchObservation {
public:
    [[nodiscard]] std::optional<double> operator[](WatchQuantity quantity) const {
        return m_values.at(static_cast<std::size_t>(quantity));
    }
    std::optional<double>& at(WatchQuantity quantity) { return m_values.at(static_cast<std::size_t>(quantity)); }

private:
    std::array<std::optional<double>, watch_quantities.size()> m_values;
};

// The sources are those of the same reports, the budget too.
[[nodiscard]] WatchObservation observe(const ChronyReports& reports, const std::vector<JudgedSource>& sources,
                                       const std::optional<ErrorBudget>& budget);

// Whether chronyd could select it: the letters * + - W P U D.
[[nodiscard]] bool is_usable(const JudgedSource& source);
[[nodiscard]] std::size_t usable_count(const std::vector<JudgedSource>& sources);

// s since the last update from a source, not below 0; none where the reports do not tell.
[[nodiscard]] std::optional<double> age_of_update(const ChronyReports& reports);

} // namespace tickervantage
