// What the frequency-temperature window remembers.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tickervantage {

class DefaultSettings;

struct FreqTempSettings {
    static constexpr std::int64_t FEWEST_SAMPLES = 1;
    static constexpr std::int64_t MOST_SAMPLES = 1'000'000;

    bool show_scatter_points = true;
    bool show_mean_frequency = true;
    bool show_freq_bounds = true;
    bool show_last_record = true;
    std::int64_t max_samples = 2000;
    std::int64_t regression_order = 1; // index of the pop-up's item: the degree, less one

    static FreqTempSettings load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
    friend bool operator==(const FreqTempSettings&, const FreqTempSettings&) = default;
};

} // namespace tickervantage
