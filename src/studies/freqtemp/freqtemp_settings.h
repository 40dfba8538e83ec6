// What the frequency-temperature window remembers.
#pragma once

#include "settings/settings_keys.h"

namespace tickervantage {

class DefaultSettings;

struct FreqTempSettings {
    bool show_scatter_points = settings::show_scatter_points.fallback;
    bool show_mean_frequency = settings::show_mean_frequency.fallback;
    bool show_freq_bounds = settings::show_freq_bounds.fallback;
    bool show_last_record = settings::show_last_record.fallback;
    std::int64_t max_samples = settings::max_samples.fallback;
    // Index of the pop-up's item: the degree, less one.
    std::int64_t regression_order = settings::regression_order.fallback;
    static FreqTempSettings load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
    friend bool operator==(const FreqTempSettings&, const FreqTempSettings&) = default;
};

} // namespace tickervantage
