#include "studies/laboratory/spectral_peaks.h"

#include "base/quantile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tickervantage {
namespace {

constexpr double half = 0.5;
constexpr double node_growth = 1.25;      // of the ranges whose medians are taken
constexpr std::size_t least_in_node = 24; // steps
constexpr double looks_that_count = 64;   // more of them do not make a median more trusted beside the others
constexpr double reach = 2.5;             // of the smoothing: powers of e to each side
constexpr double fewest_cycles = 2;       // of what is called a period
constexpr double side_lobe_safety = 4;    // window and peak are known on steps only
constexpr double deviations_of_95 = 1.959964;

// ln(frequency in steps), ln(density), trust.
struct Node {
    double place;
    double level;
    double weight;
};

std::vector<Node> nodes_of(const SpectrumAtHand& spectrum) {
    std::vector<Node> nodes;
    std::vector<double> values;
    const auto first = static_cast<std::size_t>(spectrum.steps_per_look);
    for (std::size_t from = first, to = 0; from < spectrum.density.size(); from = to) {
        to = std::max(from + least_in_node, static_cast<std::size_t>(static_cast<double>(from) * node_growth));
        if (to + least_in_node > spectrum.density.size())
            to = spectrum.density.size();
        values.assign(spectrum.density.begin() + static_cast<std::ptrdiff_t>(from - 1),
                      spectrum.density.begin() + static_cast<std::ptrdiff_t>(to - 1));
        const double median = quantile(values, half);
        if (median > 0)
            nodes.push_back({std::log(half * static_cast<double>(from + to)), // where the median of a slope lies
                             std::log(median / std::numbers::ln2),
                             std::min(static_cast<double>(to - from) / spectrum.steps_per_look, looks_that_count)});
    }
    return nodes;
}

// The noise at a place: the straight line that fits the nodes near it, the nearer the better.
double smoothed(const std::vector<Node>& nodes, double place) {
    const double inside = std::clamp(place, nodes.front().place, nodes.back().place);
    double sum = 0;
    double mean_place = 0;
    double mean_level = 0;
    const auto weight_of = [inside](const Node& node) {
        const double far = std::abs(node.place - inside) / reach;
        return far < 1 ? node.weight * std::pow(1 - far * far * far, 3) : 0;
    };
    for (const Node& node : nodes) {
        sum += weight_of(node);
        mean_place += weight_of(node) * node.place;
        mean_level += weight_of(node) * node.level;
    }
    mean_place /= sum;
    mean_level /= sum;
    double together = 0;
    double alone = 0;
    for (const Node& node : nodes) {
        together += weight_of(node) * (node.place - mean_place) * (node.level - mean_level);
        alone += weight_of(node) * (node.place - mean_place) * (node.place - mean_place);
    }
    return std::exp(mean_level + (alone > 0 ? together / alone * (place - mean_place) : 0));
}

struct Candidate {
    std::size_t at; // of the density
    double over;    // how many times the noise
    double noise;   // unit² / Hz
};

double false_alarm(double over, double looks) {
    return -std::expm1(looks * std::log1p(-std::exp(-over)));
}

std::vector<Candidate> candidates_in(const SpectrumAtHand& spectrum) {
    std::vector<Candidate> found;
    const auto nodes = nodes_of(spectrum);
    if (nodes.empty())
        return found;
    const auto& density = spectrum.density;
    const auto looks = static_cast<double>(density.size()); // each step: the highest lies between two others
    const double least = -std::log(-std::expm1(std::log1p(-largest_false_alarm) / looks)); // times the noise
    const double lowest = std::exp(std::ranges::min(nodes, {}, &Node::level).level);
    for (auto at = static_cast<std::size_t>(fewest_cycles * spectrum.steps_per_look); at + 1 < density.size(); ++at) {
        if (density[at] < density[at - 1] || density[at] < density[at + 1] || density[at] < least * half * lowest)
            continue;
        const double noise = smoothed(nodes, std::log(static_cast<double>(at + 1)));
        if (density[at] > least * noise)
            found.push_back({at, density[at] / noise, noise});
    }
    std::ranges::sort(found, std::ranges::greater(), [&](const Candidate& one) { return density[one.at]; });
    return found;
}

// The largest share near so many steps beside a peak. Beyond the highest frequency it comes back, as it does where the
// steps between the values are nearly the same.
double window_at(std::span<const float> window, std::size_t apart) {
    const std::size_t last = window.size();
    const std::size_t folded = std::clamp<std::size_t>(apart > last ? 2 * last - apart : apart, 2, last - 1);
    return std::max({window[folded - 2], window[folded - 1], window[folded]});
}

// What a stronger peak, and its mirror image below zero, leave at another frequency.
double leaked(const SpectrumAtHand& spectrum, std::size_t from, std::size_t to) {
    const std::size_t apart = std::max(from, to) - std::min(from, to);
    if (static_cast<double>(apart) < 2 * spectrum.steps_per_look)
        return spectrum.density[from]; // the peak itself
    return spectrum.density[from] * (window_at(spectrum.window, apart) + window_at(spectrum.window, from + to + 2));
}

// The top of the parabola through the logarithms of a peak and its neighbours: how far beside, and how much higher.
struct Top {
    double beside; // steps
    double times;
};

Top top_of(std::span<const float> density, std::size_t at) {
    const double left = std::log(std::max<double>(density[at - 1], density[at] * 1e-6));
    const double middle = std::log(static_cast<double>(density[at]));
    const double right = std::log(std::max<double>(density[at + 1], density[at] * 1e-6));
    const double bend = left - 2 * middle + right;
    if (!(bend < 0))
        return {0, 1};
    const double beside = std::clamp(half * (left - right) / bend, -half, half);
    return {beside, std::exp(-half * half * (left - right) * beside)};
}

std::optional<KnownPeriod> known_period(double frequency, double resolution) {
    struct Name {
        double seconds;
        KnownPeriod period;
    };
    static constexpr std::array<Name, 4> names{{{604800, KnownPeriod::week},
                                                {86400, KnownPeriod::day},
                                                {43200, KnownPeriod::half_day},
                                                {3600, KnownPeriod::hour}}};
    constexpr double largest_tolerance = 0.1;
    constexpr double smallest_tolerance = 0.002;
    constexpr double poll_tolerance = 0.01; // chronyd itself varies its polls by that much
    const double cycles = std::min(resolution / frequency, largest_tolerance);
    for (const Name& name : names)
        if (std::abs(frequency * name.seconds - 1) <= std::max(cycles, smallest_tolerance))
            return name.period;
    const double poll = std::exp2(std::round(-std::log2(frequency)));
    constexpr double longest_poll = 131072;
    if (poll >= 1 && poll <= longest_poll && std::abs(frequency * poll - 1) <= std::max(cycles, poll_tolerance))
        return KnownPeriod::poll_interval;
    return std::nullopt;
}

SpectralPeak peak_at(const SpectrumAtHand& spectrum, const Candidate& candidate) {
    const Top top = top_of(spectrum.density, candidate.at);
    SpectralPeak peak;
    peak.frequency = (static_cast<double>(candidate.at + 1) + top.beside) * spectrum.step;
    peak.density = spectrum.density[candidate.at] * top.times;
    peak.amplitude = std::sqrt(2 * peak.density / spectrum.observed);
    const double deviation = std::sqrt(candidate.noise / spectrum.observed);
    peak.amplitude_low = std::max(0.0, peak.amplitude - deviations_of_95 * deviation);
    peak.amplitude_high = peak.amplitude + deviations_of_95 * deviation;
    peak.false_alarm = false_alarm(candidate.over, static_cast<double>(spectrum.density.size()));
    peak.known = known_period(peak.frequency, spectrum.step * spectrum.steps_per_look);
    return peak;
}

} // namespace

std::vector<SpectralPeak> peaks_of(const SpectrumAtHand& spectrum) {
    std::vector<Candidate> accepted;
    for (const Candidate& candidate : candidates_in(spectrum)) {
        double others = 0;
        for (const Candidate& stronger : accepted)
            others += leaked(spectrum, stronger.at, candidate.at);
        if (spectrum.density[candidate.at] > side_lobe_safety * others)
            accepted.push_back(candidate);
        if (accepted.size() == most_peaks)
            break;
    }
    std::vector<SpectralPeak> peaks;
    peaks.reserve(accepted.size());
    for (const Candidate& candidate : accepted)
        peaks.push_back(peak_at(spectrum, candidate));
    return peaks;
}

} // namespace tickervantage
