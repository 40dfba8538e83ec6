#include "cli/laboratory/laboratory_command.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/sentence.h"
#include "cli/json_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>

namespace tickervantage {
namespace {

constexpr int default_minpoll = 6; // chronyd's own
constexpr int default_maxpoll = 10;

std::vector<std::string_view> parts_of(std::string_view text) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto comma = text.find(',');
        parts.push_back(text.substr(0, comma));
        if (comma == std::string_view::npos)
            return parts;
        text.remove_prefix(comma + 1);
    }
}

Json json_of(const StabilityPoint& point) {
    return {{"tau", point.tau},
            {"n", point.n},
            {"value", point.value},
            {"low", or_null(point.low)},
            {"high", or_null(point.high)},
            {"noise", point.noise ? Json(name_of(*point.noise)) : Json(nullptr)},
            {"hollow", point.is_hollow}};
}

Json json_of(const StabilityCurve& curve) {
    Json points = Json::array();
    for (const StabilityPoint& point : curve.points)
        points.push_back(json_of(point));
    return {{"measure", name_of(curve.measure)}, {"points", points}};
}

std::string limit_text(const std::optional<double>& limit) {
    return limit ? fmt::format("{:.6e}", *limit) : "-";
}

void print_curve(const StabilityCurve& curve, std::ostream& out) {
    out << fmt::format("\n{:<6} {:>12} {:>9} {:>13} {:>13} {:>13}  noise\n", name_of(curve.measure), "tau (s)", "n",
                       "value", "low", "high");
    for (const StabilityPoint& point : curve.points)
        out << fmt::format("       {:>12.6g} {:>9} {:>13.6e} {:>13} {:>13}  {}{}\n", point.tau, point.n, point.value,
                           limit_text(point.low), limit_text(point.high), point.noise ? name_of(*point.noise) : "-",
                           point.is_hollow ? "  (not the clock: the measurement's noise)" : "");
}

std::string duration(double seconds) {
    return text_of(quantity::duration(seconds));
}

Json json_of(const HoldoverError& error) {
    return {{"seconds", error.seconds},
            {"error", error.error},
            {"low", error.low},
            {"high", error.high},
            {"chronyd", error.chronyd}};
}

} // namespace

Result<std::vector<StabilityMeasure>> measures_in(std::string_view text) {
    std::vector<StabilityMeasure> measures;
    for (const auto name : parts_of(text)) {
        const auto measure = stability_measure_named(name);
        if (!measure)
            return failed(FailureCode::no_such_measure, {std::string(name)});
        if (std::ranges::find(measures, *measure) == measures.end())
            measures.push_back(*measure);
    }
    return measures;
}

Result<> take_averaging_times(std::string_view text, StabilityQuestion& question) {
    if (text == "octave" || text == "decade" || text == "all") {
        question.spacing = text == "octave"   ? TauSpacing::octave
                           : text == "decade" ? TauSpacing::decade
                                              : TauSpacing::all;
        return {};
    }
    question.spacing = TauSpacing::listed;
    for (const auto part : parts_of(text)) {
        const auto tau = number_from_text<double>(part);
        if (!tau || !(*tau > 0))
            return failed(FailureCode::no_averaging_time, {std::string(text)});
        question.taus.push_back(*tau);
    }
    return {};
}

void print_stability(const PhaseData& data, const std::vector<StabilityCurve>& curves, bool as_json,
                     std::ostream& out) {
    const auto advice = poll_advice(data, default_minpoll, default_maxpoll);
    if (as_json) {
        Json measures = Json::array();
        for (const StabilityCurve& curve : curves)
            measures.push_back(json_of(curve));
        out << json_text({{"tau0", data.tau0},
                          {"count", data.count},
                          {"segments", data.segments.size()},
                          {"measures", measures},
                          {"advice", advice ? Json(english(*advice)) : Json(nullptr)}});
        return;
    }
    out << fmt::format("Step      : {} s\nValues    : {}, in {} without gap\n",
                       text_from_double(data.tau0).value_or("-"), data.count,
                       data.segments.size() == 1 ? "one stretch" : fmt::format("{} stretches", data.segments.size()));
    for (const StabilityCurve& curve : curves)
        print_curve(curve, out);
    if (advice)
        out << '\n' << english(*advice) << '\n';
}

void print_holdover(const HoldoverForecast& forecast, bool as_json, std::ostream& out) {
    if (as_json) {
        Json horizons = Json::array();
        for (const HoldoverError& error : forecast.horizons)
            horizons.push_back(json_of(error));
        out << json_text({{"quantile", forecast.quantile},
                          {"horizons", horizons},
                          {"limit", or_null(forecast.limit)},
                          {"limit_after", or_null(forecast.limit_after)}});
        return;
    }
    out << fmt::format("Were the sources lost now, {:g} % of the past say that the clock would be off by at most:\n",
                       100 * forecast.quantile);
    for (const HoldoverError& error : forecast.horizons)
        out << fmt::format("  after {:<12} {:>10}  ({} to {}; chronyd's own bound: {})\n", duration(error.seconds),
                           text_of(quantity::seconds(error.error)), text_of(quantity::seconds(error.low)),
                           text_of(quantity::seconds(error.high)), text_of(quantity::seconds(error.chronyd)));
    if (forecast.limit)
        out << (forecast.limit_after
                    ? fmt::format("Within {} for {}.\n", text_of(quantity::seconds(*forecast.limit)),
                                  duration(*forecast.limit_after))
                    : fmt::format("Within {} for more than {}.\n", text_of(quantity::seconds(*forecast.limit)),
                                  duration(forecast.horizons.back().seconds)));
}

} // namespace tickervantage
