#include "studies/laboratory/noise_type.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, 5> names{"random_walk_fm", "flicker_fm", "white_fm", "flicker_pm", "white_pm"};
constexpr std::size_t fewest_values = 30;
constexpr int most_differences = 2; // of phase: enough for random walk of the frequency
constexpr double stationary = 0.25; // the fractional integration up to which a series counts as stationary

PhaseSegments decimated(const PhaseSegments& segments, std::size_t factor) {
    PhaseSegments kept;
    for (const auto& segment : segments) {
        auto& values = kept.emplace_back();
        for (std::size_t at = 0; at < segment.size(); at += factor)
            values.push_back(segment[at]);
    }
    std::erase_if(kept, [](const auto& values) { return values.size() < fewest_values; });
    return kept;
}

void difference(PhaseSegments& segments) {
    for (auto& values : segments) {
        std::adjacent_difference(values.begin(), values.end(), values.begin());
        values.erase(values.begin());
    }
}

// Of all segments together, each about its own mean; none where nothing varies.
std::optional<double> lag1_autocorrelation(const PhaseSegments& segments) {
    double together = 0;
    double alone = 0;
    for (const auto& values : segments) {
        const double mean = std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
        for (std::size_t at = 0; at < values.size(); ++at) {
            alone += (values[at] - mean) * (values[at] - mean);
            if (at > 0)
                together += (values[at] - mean) * (values[at - 1] - mean);
        }
    }
    return alone > 0 ? std::optional(together / alone) : std::nullopt;
}

} // namespace

std::string_view name_of(NoiseType noise) {
    return names.at(static_cast<std::size_t>(static_cast<int>(noise) - static_cast<int>(NoiseType::random_walk_fm)));
}

std::optional<NoiseType> noise_type(const PhaseSegments& segments, std::size_t factor) {
    PhaseSegments values = decimated(segments, factor);
    for (int differences = 0; !values.empty(); ++differences) {
        const auto correlation = lag1_autocorrelation(values);
        if (!correlation)
            return std::nullopt;
        const double integration = *correlation / (1 + *correlation);
        if (integration < stationary || differences == most_differences) {
            const int phase_power = -static_cast<int>(std::lround(2 * integration)) - 2 * differences;
            return static_cast<NoiseType>(std::clamp(phase_power + 2, static_cast<int>(NoiseType::random_walk_fm),
                                                     static_cast<int>(NoiseType::white_pm)));
        }
        difference(values);
    }
    return std::nullopt;
}

} // namespace tickervantage
