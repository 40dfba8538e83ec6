#include "studies/freqtemp/recorded_temperatures.h"

#include "studies/freqtemp/scatter_json.h"

#include <cmath>
#include <numbers>
#include <random>

namespace tickervantage {
namespace {

constexpr std::int64_t day = 86400;    // s
constexpr std::int64_t interval = 360; // s
constexpr std::int64_t days = 6;
constexpr double turning = 42;      // °C
constexpr double curvature = -0.03; // ppm a degree squared, of the usual cut of a quartz

double temperature_at(std::int64_t second) {
    const double days_on = static_cast<double>(second) / static_cast<double>(day);
    const double daily = 6 * std::sin(2 * std::numbers::pi * days_on);
    const double slow = 2 * std::sin(2 * std::numbers::pi * days_on / 4.3);
    return turning - 4 + daily + slow;
}

// Even between -1 and 1. The standard library's distributions differ from one library to the next.
double shaken(std::mt19937& draws) {
    return 2 * static_cast<double>(draws()) / static_cast<double>(std::mt19937::max()) - 1;
}

} // namespace

ScatterMap recorded_temperatures(std::int64_t end) {
    ScatterMap map = fresh_map({{"recording/crystal", {}}});
    scatterEntry& crystal = map.begin()->second;
    std::mt19937 draws{20261122};
    for (std::int64_t second = 0; second <= days * day; second += interval) {
        const double temperature = temperature_at(second) + 0.2 * shaken(draws);
        const double away = temperature - turning;
        crystal.points.append({temperature, -1.5 + curvature * away * away + 0.2 * shaken(draws)},
                              end - days * day + second);
    }
    (void)crystal.quadRegression->fit(crystal.points.spans(), 2);
    return map;
}

Result<> keep_recorded_temperatures(Files& files, const std::string& path, std::int64_t end) {
    const ScatterMap map = recorded_temperatures(end);
    return files.replace(path, [&map](const TextSink& sink) { return write_scatter_json(map, sink); });
}

} // namespace tickervantage
