#include "studies/freqtemp/scatter_map.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

constexpr double FIRST_HUE = 0.5;
constexpr double ALPHA = 0.75;

// Full saturation and brightness; the hue goes from 0 to 1, once round from red over green and blue.
colorType color_of_hue(double hue) {
    const double part = hue * 6;
    const auto channel = [part](double away) { // 1 within one part of its hue, 0 from two parts on
        const double distance = std::abs(std::remainder(part - away, 6));
        return std::clamp(2 - distance, 0.0, 1.0);
    };
    return {channel(0), channel(2), channel(4), ALPHA};
}

} // namespace

ScatterMap snapshot(const ScatterMap& map) {
    ScatterMap result = map;
    for (auto& [name, entry] : result)
        entry.quadRegression = std::make_shared<QuadRegression>(*entry.quadRegression);
    return result;
}

std::size_t largest_count(const ScatterMap& map) {
    std::size_t largest = 0;
    for (const auto& [name, entry] : map)
        largest = std::max(largest, entry.points.size());
    return largest;
}

ScatterMap fresh_map(const std::vector<tempSensor>& sensors) {
    ScatterMap map;
    double hue = FIRST_HUE;
    for (const auto& sensor : sensors) {
        map[sensor.name].color = color_of_hue(hue);
        hue += 1 / static_cast<double>(sensors.size());
        if (hue > 1)
            hue -= 1;
    }
    return map;
}

ScatterMap merged(const ScatterMap& fresh, ScatterMap stored) {
    for (const auto& [name, entry] : fresh)
        if (const auto found = stored.find(name); found != stored.end())
            found->second.color = entry.color;
    return stored;
}

} // namespace tickervantage
