#include "studies/laboratory/compensation_choice.h"

#include "base/failure_codes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {
namespace {

// Sensors are named by chip, bus and feature: "coretemp-isa-0000/temp1".
bool is_sensor(const std::string& name, const SensorPlace& place) {
    const std::string feature = '/' + place.input.substr(0, place.input.find('_'));
    return name.starts_with(place.chip + '-') && name.ends_with(feature);
}

void take_off_installed(const InstalledCompensation& installed, const std::string& sensor,
                        std::vector<TemperatureSample>& samples) {
    constexpr double unit = 1000; // parts of a degree
    const auto since = static_cast<std::int64_t>(installed.since);
    if (installed.sensor && is_sensor(sensor, *installed.sensor) && installed.points.size() > 1)
        take_off(installed.points, unit, since, samples);
    else
        std::erase_if(samples, [since](const TemperatureSample& one) { return one.time >= since; });
}

// A study that was not refused comes first, then the one that is surest; one that knows nothing comes last.
std::pair<bool, double> rank_of(const CompensationChoice& choice) {
    const auto& [compensation, refused] = choice.study;
    return {!refused, compensation ? compensation->gain_low : 0};
}

} // namespace

TimedSamples samples_in_map(const ScatterMap& map) {
    TimedSamples samples;
    for (const auto& [sensor, entry] : map)
        for (std::size_t at = 0; at < entry.points.size(); ++at)
            if (const auto time = entry.points.time(at))
                samples[sensor].push_back({*time, entry.points[at].temperature, entry.points[at].frequency});
    return samples;
}

std::size_t points_needed(const CompensationChoice& choice, std::size_t most) {
    const auto& refused = choice.study.refused;
    const bool is_short = refused && (refused->code == FailureCode::compensation_without_history ||
                                      refused->code == FailureCode::compensation_without_days);
    const std::size_t count = choice.samples.size();
    if (!is_short || count < std::max<std::size_t>(most, 2))
        return 0;
    const auto span = static_cast<double>(choice.samples.back().time - choice.samples.front().time);
    const double wanted = static_cast<double>(count) * (shortest_temperature_history + 1) * 86400 / span;
    if (!std::isfinite(wanted) || wanted <= static_cast<double>(count))
        return 0;
    const double step = std::pow(10, std::floor(std::log10(wanted)) - 1);
    return static_cast<std::size_t>(std::ceil(wanted / step) * step);
}

std::optional<CompensationChoice> choose_compensation(TimedSamples samples,
                                                      const std::optional<InstalledCompensation>& installed) {
    std::optional<CompensationChoice> best;
    for (auto& one : samples) {
        if (installed)
            take_off_installed(*installed, one.first, one.second);
        CompensationChoice choice{.sensor = one.first, .study = study_compensation(one.second), .samples = {}};
        choice.samples = std::move(one.second);
        if (!best || rank_of(choice) > rank_of(*best))
            best = std::move(choice);
    }
    return best;
}

} // namespace tickervantage
