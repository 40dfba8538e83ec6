#include "watch/rules.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {

std::string_view name_of(WatchQuantity quantity) {
    static constexpr std::array<std::string_view, watch_quantities.size()> names{"unavailable", "holdover", "bound",
                                                                                 "no_majority", "usable",   "step"};
    return names.at(static_cast<std::size_t>(quantity));
}

std::optional<WatchQuantity> quantity_of_rule(std::string_view name) {
    const auto* const found =
        std::ranges::find(watch_quantities, name, [](WatchQuantity quantity) { return name_of(quantity); });
    return found == watch_quantities.end() ? std::nullopt : std::optional(*found);
}

bool begins(const WatchRule& rule, std::optional<double> value) {
    if (!value)
        return false;
    return rule.sense == WatchSense::above ? *value > rule.raise : *value < rule.raise;
}

bool lasts(const WatchRule& rule, std::optional<double> value) {
    if (!value)
        return false;
    return rule.sense == WatchSense::above ? *value >= rule.clear : *value <= rule.clear;
}

bool has_hysteresis(const WatchRule& rule) {
    const bool is_count = rule.quantity == WatchQuantity::available || rule.quantity == WatchQuantity::no_majority ||
                          rule.quantity == WatchQuantity::usable;
    return !is_count || std::abs(rule.raise - rule.clear) > 1;
}

std::vector<WatchRule> watch_rules(const WatchThresholds& thresholds) {
    constexpr double minute = 60;
    const auto less = [](double raise) {
        return raise * 4 / 5; // of 0.05 exactly 0.04
    };
    using enum WatchQuantity;
    using enum WatchSeverity;
    const auto above = WatchSense::above;
    const auto below = WatchSense::below;
    return {
        {available, below, 1, 0, minute, minute, critical},
        {no_majority, above, 1, 2, minute, minute, critical},
        // Out of holdover the value is 0.
        {holdover, above, thresholds.holdover, std::min(1.0, thresholds.holdover), 0, minute, warning},
        {bound, above, thresholds.bound, less(thresholds.bound), minute, 5 * minute, warning},
        {usable, below, thresholds.usable, std::ceil(thresholds.usable) - 1, 5 * minute, 5 * minute, warning},
        {step, above, thresholds.step, less(thresholds.step), 0, 0, warning},
    };
}

} // namespace tickervantage
