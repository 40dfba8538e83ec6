#include "studies/laboratory/stability.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/translatable.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tickervantage {
namespace {

/* TRANSLATOR laboratory
   What a clock's past says of it. %1, %2, … stand for spans of time, numbers and paths. Directives of chrony's
   configuration (maxpoll, minpoll) stay as they are. */
constexpr const char* context = "laboratory";
constexpr double floor_in_deviations = 2;       // of what the measurement alone would give
constexpr std::size_t longest_for_all = 20'000; // values whose every averaging time is worth its work

std::size_t longest(const PhaseSegments& segments) {
    std::size_t most = 0;
    for (const auto& segment : segments)
        most = std::max(most, segment.size());
    return most;
}

std::vector<std::size_t> spaced(std::size_t most, TauSpacing spacing) {
    std::vector<std::size_t> factors;
    const std::size_t times = spacing == TauSpacing::octave ? 2 : 10;
    for (std::size_t factor = 1; factor <= most; factor = spacing == TauSpacing::all ? factor + 1 : factor * times)
        factors.push_back(factor);
    return factors;
}

Result<std::vector<std::size_t>> listed(const std::vector<double>& taus, double tau0) {
    std::vector<std::size_t> factors;
    for (const double tau : taus) {
        const double factor = std::round(tau / tau0);
        if (!(factor >= 1) || factor > 1e15)
            return failed(FailureCode::tau_below_step,
                          {text_from_double(tau).value_or("?"), text_from_double(tau0).value_or("?")});
        factors.push_back(static_cast<std::size_t>(factor));
    }
    std::ranges::sort(factors);
    factors.erase(std::unique(factors.begin(), factors.end()), factors.end());
    return factors;
}

Result<std::vector<std::size_t>> factors_of(const PhaseData& data, const StabilityQuestion& question) {
    if (question.spacing == TauSpacing::listed)
        return listed(question.taus, data.tau0);
    const std::size_t most = longest(data.segments);
    if (question.spacing == TauSpacing::all && data.count > longest_for_all)
        return failed(FailureCode::too_many_for_all, {std::to_string(longest_for_all)});
    return spaced(most, question.spacing);
}

double degrees_of_all(StabilityMeasure measure, NoiseType noise, std::size_t factor, const PhaseSegments& segments) {
    double degrees = 0;
    for (const auto& segment : segments)
        degrees += degrees_of_freedom(measure, noise, factor, segment.size());
    return degrees;
}

bool is_below_floor(StabilityMeasure measure, double value, double tau, const PhaseData& data) {
    const auto floor = measurement_floor(data, tau);
    if (!floor || measure == StabilityMeasure::mtie)
        return false;
    return value < (measure == StabilityMeasure::tdev ? *floor * tau / std::numbers::sqrt3 : *floor);
}

// `noise` is that of a shorter averaging time where this one has too few values to tell.
StabilityPoint point_at(const PhaseData& data, StabilityMeasure measure, std::size_t factor,
                        const StabilityQuestion& question, const Deviation& found,
                        const std::optional<NoiseType>& noise) {
    StabilityPoint point;
    point.tau = static_cast<double>(factor) * data.tau0;
    point.n = found.n;
    point.value = found.value;
    point.is_hollow = is_below_floor(measure, found.value, point.tau, data);
    if (!noise)
        return point;
    const double degrees = degrees_of_all(measure, *noise, factor, data.segments);
    if (const auto limits = limits_of(found.value, degrees, question.confidence)) {
        point.low = limits->low;
        point.high = limits->high;
    }
    return point;
}

} // namespace

Result<std::vector<StabilityCurve>> stability_of(const PhaseData& data, const StabilityQuestion& question) {
    const auto factors = factors_of(data, question);
    if (!factors)
        return tl::unexpected(factors.error());
    std::vector<std::optional<NoiseType>> noises;
    noises.reserve(factors->size());
    for (const std::size_t factor : *factors)
        noises.push_back(noise_type(data.segments, factor));
    std::vector<StabilityCurve> curves;
    for (const StabilityMeasure measure : question.measures) {
        StabilityCurve curve{.measure = measure, .points = {}};
        std::optional<NoiseType> known;
        for (std::size_t at = 0; at < factors->size(); ++at) {
            known = noises[at] ? noises[at] : known;
            const auto found = deviation(measure, data.segments, data.tau0, (*factors)[at]);
            if (!found)
                continue;
            curve.points.push_back(point_at(data, measure, (*factors)[at], question, *found, known));
            curve.points.back().noise = noises[at];
        }
        curves.push_back(std::move(curve));
    }
    return curves;
}

std::optional<double> measurement_floor(const PhaseData& data, double tau) {
    if (!data.offset_sd || !(*data.offset_sd > 0))
        return std::nullopt;
    return floor_in_deviations * std::numbers::sqrt3 * *data.offset_sd / tau;
}

std::optional<double> best_poll_interval(const PhaseData& data) {
    const auto curves = stability_of(data, {});
    if (!curves || !measurement_floor(data, 1))
        return std::nullopt;
    std::optional<double> from;
    for (const StabilityPoint& point : curves->front().points) {
        const bool is_sure = point.low && *point.low >= *measurement_floor(data, point.tau);
        if (point.is_hollow)
            from = std::nullopt;
        else if (is_sure && !from)
            from = point.tau;
    }
    return from;
}

Sentence poll_advice(double best_interval, int minpoll, int maxpoll) {
    const int poll = std::clamp(static_cast<int>(std::floor(std::log2(best_interval))), -6, 24);
    const auto with = [&](const char* words, int configured) {
        return Sentence{
            context, words, {quantity::duration(best_interval), std::to_string(poll), std::to_string(configured)}};
    };
    if (poll < minpoll)
        return with(TV_TEXT("laboratory",
                            "Over more than %1 the clock wanders more than the network shakes, and chronyd "
                            "asks less often than that: minpoll %2 in place of %3 would follow it better."),
                    minpoll);
    if (poll < maxpoll)
        return with(TV_TEXT("laboratory",
                            "Over more than %1 the clock wanders more than the network shakes: asking less "
                            "often loses accuracy. maxpoll %2 in place of %3 fits this clock."),
                    maxpoll);
    return with(TV_TEXT("laboratory",
                        "Only over more than %1 the clock wanders more than the network shakes: the longest "
                        "poll interval that chronyd may choose (maxpoll %3) costs this clock no accuracy."),
                maxpoll);
}

std::optional<Sentence> poll_advice(const PhaseData& data, int minpoll, int maxpoll) {
    const auto interval = best_poll_interval(data);
    return interval ? std::optional(poll_advice(*interval, minpoll, maxpoll)) : std::nullopt;
}

} // namespace tickervantage
