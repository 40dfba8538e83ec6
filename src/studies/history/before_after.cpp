#include "studies/history/before_after.h"

#include "base/quantile.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t fewest = 20;    // 95 of 100 need one in twenty
constexpr double clear_change = 1.25; // by less than that two halves of the same day differ
constexpr double share_that_counts = 0.95;

std::optional<double> size_of(std::span<const double> values, AxisUnit unit) {
    if (values.size() < fewest)
        return std::nullopt;
    std::vector<double> sizes(values.begin(), values.end());
    const double middle = unit == AxisUnit::seconds ? 0 : quantile(sizes, 0.5);
    for (double& size : sizes)
        size = std::abs(size - middle);
    return quantile(sizes, share_that_counts);
}

} // namespace

BeforeAfter::Change BeforeAfter::change() const {
    if (!before || !after)
        return Change::unknown;
    if (times() < clear_change)
        return Change::same;
    return *after < *before ? Change::smaller : Change::larger;
}

double BeforeAfter::times() const {
    const double small = std::min(before.value_or(0), after.value_or(0));
    const double large = std::max(before.value_or(0), after.value_or(0));
    if (small == large)
        return 1;
    return small > 0 ? large / small : std::numeric_limits<double>::infinity();
}

BeforeAfter compare_before_after(std::span<const double> values, std::size_t split, AxisUnit unit) {
    const std::size_t cut = std::min(split, values.size());
    return {.count_before = cut,
            .count_after = values.size() - cut,
            .before = size_of(values.first(cut), unit),
            .after = size_of(values.subspan(cut), unit)};
}

} // namespace tickervantage
