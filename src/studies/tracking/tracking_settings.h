// What a tracking window remembers, and what its legend can put back.
#pragma once

#include "base/color.h"
#include "studies/tracking/tracking_records.h"

#include <array>

namespace tickervantage {

class DefaultSettings;

// The legend's controls as one record: by Series, in the order in which the series are drawn.
struct popover_settings {
    std::array<Color, series_count> colors{};
    std::array<bool, series_count> shown{};
    bool use_logscale = false;
    friend bool operator==(const popover_settings&, const popover_settings&) = default;
};

struct TrackingSettings {
    popover_settings legend;
    int dataTimeRange = 0; // index of the pop-up: 0 the whole log, 2 to 8 so many hours as range_hours says
    double vZoom = 0;
    double vScale = 0;
    double hZoom = 0;

    // The settings as they are when nothing was ever saved; with it every load starts. The colour of the offset's
    // standard deviation is neither loaded nor saved: it always starts from here.
    static TrackingSettings defaults();
    static TrackingSettings load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
};

// The hours of a time range by its index; 0 for the whole log. Index 1 is the pop-up's separator and no range.
inline constexpr std::array hours_of_ranges{0, 0, 1, 2, 3, 4, 6, 12, 24};
inline constexpr int range_count = hours_of_ranges.size();
[[nodiscard]] int range_hours(int index); // 0 for any other index

} // namespace tickervantage
