#include "studies/history/limit_share.h"

#include <algorithm>

namespace tickervantage {

LimitShare share_within(std::span<const double> times, std::span<const double> bounds, double limit) {
    LimitShare share;
    double outside = 0; // of the excursion that goes on
    for (std::size_t at = 1; at < std::min(times.size(), bounds.size()); ++at) {
        const double length = times[at] - times[at - 1];
        const bool is_outside = length <= longest_pause && bounds[at] > limit;
        (length > longest_pause ? share.without : is_outside ? share.outside : share.within) += length;
        share.excursions += is_outside && outside == 0 ? 1 : 0;
        outside = is_outside ? outside + length : 0;
        share.longest = std::max(share.longest, outside);
    }
    return share;
}

} // namespace tickervantage
