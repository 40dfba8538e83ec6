#include "studies/laboratory/holdover.h"

#include "base/quantile.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <span>

namespace tickervantage {
namespace {

constexpr std::size_t most_starts = 20'000; // more of them know no more: neighbours tell the same
constexpr int resamplings = 200;
constexpr double resampled_low = 0.025;
constexpr double resampled_high = 0.975;
constexpr double steps_per_doubling = 4; // of the search for the limit
constexpr double half = 0.5;

struct Start {
    double time = 0;
    double error = 0; // s
    double bound = 0; // s, chronyd's
};

// How far the clock went off in `horizon` seconds from each record on, for every `step`th record.
void add_starts(std::span<const ClockRecord> stretch, double horizon, std::size_t step, std::vector<Start>& starts) {
    std::size_t later = 0;
    for (std::size_t at = 0; at < stretch.size(); at += step) {
        const ClockRecord& from = stretch[at];
        const double until = static_cast<double>(from.time) + horizon;
        while (later < stretch.size() && static_cast<double>(stretch[later].time) < until)
            ++later;
        if (later == stretch.size())
            return;
        const ClockRecord& after = stretch[later];
        const ClockRecord& before = stretch[later - 1];
        const double share = (until - static_cast<double>(before.time)) / static_cast<double>(after.time - before.time);
        const double phase = before.phase + share * (after.phase - before.phase);
        starts.push_back({static_cast<double>(from.time), std::abs(phase - from.phase - from.frequency * horizon),
                          from.bound + from.bound_growth * horizon});
    }
}

std::vector<Start> starts_of(const FreeRunningClock& clock, double horizon) {
    const std::size_t step = std::max<std::size_t>(1, clock.records.size() / most_starts);
    std::vector<Start> starts;
    for (const auto stretch : clock.stretches())
        add_starts(stretch, horizon, step, starts);
    return starts;
}

// `starts` has one at least.
double error_of(const std::vector<Start>& starts, double share) {
    std::vector<double> errors(starts.size());
    std::ranges::transform(starts, errors.begin(), &Start::error);
    return quantile(errors, share);
}

double usual_bound(const std::vector<Start>& starts) {
    std::vector<double> bounds(starts.size());
    std::ranges::transform(starts, bounds.begin(), &Start::bound);
    return quantile(bounds, half);
}

// Errors that lie less than a horizon apart tell of the same stretch of the past: whole blocks are drawn.
void set_limits(const std::vector<Start>& starts, double share, HoldoverError& horizon) {
    std::vector<std::size_t> blocks{0};
    for (std::size_t at = 1; at < starts.size(); ++at)
        if (std::abs(starts[at].time - starts[blocks.back()].time) >= horizon.seconds)
            blocks.push_back(at);
    blocks.push_back(starts.size());
    std::minstd_rand random(1); // the same each time
    std::uniform_int_distribution<std::size_t> draw(0, blocks.size() - 2);
    std::vector<double> quantiles;
    std::vector<double> errors;
    for (int turn = 0; turn < resamplings; ++turn) {
        errors.clear();
        for (std::size_t drawn = 0; drawn + 1 < blocks.size(); ++drawn) {
            const std::size_t block = draw(random);
            for (std::size_t at = blocks[block]; at < blocks[block + 1]; ++at)
                errors.push_back(starts[at].error);
        }
        quantiles.push_back(quantile(errors, share));
    }
    horizon.low = std::min(quantile(quantiles, resampled_low), horizon.error);
    horizon.high = std::max(quantile(quantiles, resampled_high), horizon.error);
}

// The first time at which the forecast passes the limit, on straight lines between the times that are looked at.
std::optional<double> time_to(double limit, const FreeRunningClock& clock, double share, double longest) {
    double last_time = 0;
    double last_error = 0;
    for (double time = clock.interval; last_time < longest; time *= std::exp2(1 / steps_per_doubling)) {
        time = std::min(time, longest);
        const auto starts = starts_of(clock, time);
        if (starts.empty())
            return std::nullopt;
        const double error = error_of(starts, share);
        if (error > limit)
            return last_time + (time - last_time) * (limit - last_error) / (error - last_error);
        last_time = time;
        last_error = error;
    }
    return std::nullopt;
}

// Where a curve over the horizons passes the limit, on straight lines between their logarithms, before the first
// through zero.
std::optional<double> crossing(const HoldoverForecast& forecast, double HoldoverError::*curve) {
    const HoldoverError* before = nullptr;
    for (const HoldoverError& horizon : forecast.horizons) {
        if (horizon.*curve >= *forecast.limit) {
            if (before == nullptr)
                return horizon.seconds * *forecast.limit / (horizon.*curve);
            const double share =
                std::log(*forecast.limit / (before->*curve)) / std::log(horizon.*curve / (before->*curve));
            return before->seconds * std::pow(horizon.seconds / before->seconds, share);
        }
        before = &horizon;
    }
    return std::nullopt;
}

} // namespace

LimitInterval limit_interval(const HoldoverForecast& forecast) {
    if (!forecast.limit)
        return {};
    LimitInterval interval{crossing(forecast, &HoldoverError::high), crossing(forecast, &HoldoverError::low)};
    const double middle = crossing(forecast, &HoldoverError::error).value_or(0);
    if (!forecast.limit_after || !(middle > 0))
        return interval;
    for (auto* end : {&interval.earliest, &interval.latest}) // as far from the time that is told
        if (*end)
            **end *= *forecast.limit_after / middle;
    return interval;
}

HoldoverForecast forecast_holdover(const FreeRunningClock& clock, double share, std::optional<double> limit) {
    HoldoverForecast forecast{.quantile = share, .horizons = {}, .limit = limit, .limit_after = {}};
    const double history = clock.seconds();
    for (const double seconds : holdover_horizons) {
        if (history < history_for_horizon * seconds)
            break;
        const auto starts = starts_of(clock, seconds);
        if (starts.empty())
            break; // no stretch is as long
        HoldoverError horizon{.seconds = seconds, .error = error_of(starts, share), .chronyd = usual_bound(starts)};
        set_limits(starts, share, horizon);
        forecast.horizons.push_back(horizon);
    }
    if (limit && !forecast.horizons.empty())
        forecast.limit_after = time_to(*limit, clock, share, forecast.horizons.back().seconds);
    return forecast;
}

} // namespace tickervantage
