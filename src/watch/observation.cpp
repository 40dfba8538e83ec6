#include "watch/observation.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace tickervantage {

bool is_usable(const JudgedSource& source) {
    return std::string_view("*+-WPUD").find(source.letter) != std::string_view::npos;
}

std::size_t usable_count(const std::vector<JudgedSource>& sources) {
    return static_cast<std::size_t>(std::ranges::count_if(sources, is_usable));
}

std::optional<double> age_of_update(const ChronyReports& reports) {
    if (!reports.now || !reports.tracking || !reports.tracking->reference_time)
        return std::nullopt;
    return std::max(0.0, *reports.now - *reports.tracking->reference_time);
}

WatchObservation observe(const ChronyReports& reports, const std::vector<JudgedSource>& sources,
                         const std::optional<ErrorBudget>& budget) {
    using enum WatchQuantity;
    const Verdict verdict = judge(reports);
    WatchObservation seen;
    seen.at(available) = verdict == Verdict::unavailable ? 0 : 1;
    if (verdict == Verdict::unavailable)
        return seen;
    const bool is_held = verdict == Verdict::holdover;
    seen.at(holdover) = is_held ? age_of_update(reports) : 0;
    if (budget)
        seen.at(bound) = budget->bound;
    if (reports.sources)
        seen.at(no_majority) =
            static_cast<double>(std::ranges::count(sources, SelectionRule::no_majority, &JudgedSource::rule));
    if (reports.sources && !is_held)
        seen.at(usable) = static_cast<double>(usable_count(sources));
    if (follows_time(verdict) && reports.tracking->last_offset)
        seen.at(step) = std::abs(*reports.tracking->last_offset);
    return seen;
}

} // namespace tickervantage
