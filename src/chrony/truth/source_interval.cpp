#include "chrony/truth/source_interval.h"

#include <algorithm>
#include <array>

namespace tickervantage {

std::optional<SourceInterval> interval_of(const JudgedSource& source) {
    if (source.selection && source.selection->low && source.selection->high)
        return SourceInterval{.low = *source.selection->low, .high = *source.selection->high};
    if (source.data.offset && source.data.error)
        return SourceInterval{.low = *source.data.offset - *source.data.error,
                              .high = *source.data.offset + *source.data.error};
    return std::nullopt;
}

bool is_believed(SelectionRule rule) {
    using enum SelectionRule;
    static constexpr std::array believed{best,         combined, required, not_preferred, new_measurement,
                                         not_combined, outlier,  stratum};
    return std::ranges::find(believed, rule) != believed.end();
}

std::optional<SourceInterval> shared_interval(const std::vector<JudgedSource>& sources) {
    std::optional<SourceInterval> shared;
    for (const JudgedSource& source : sources) {
        const auto own = is_believed(source.rule) ? interval_of(source) : std::nullopt;
        if (own)
            shared = shared ? SourceInterval{std::max(own->low, shared->low), std::min(own->high, shared->high)} : own;
    }
    return shared && shared->low <= shared->high ? shared : std::nullopt;
}

} // namespace tickervantage
