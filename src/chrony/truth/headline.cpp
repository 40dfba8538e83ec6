#include "chrony/truth/headline.h"

#include "base/translatable.h"
#include "chrony/truth/judged_source.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

using quantity::count;
using quantity::seconds;

/* TRANSLATOR headline
   Whether the clock is right, in the largest letters of the window. A reason follows the name of the state and a colon,
   so it begins with a small letter. %1, %2, … stand for numbers with their units, addresses and times of day. */
constexpr const char* context = "headline";

Sentence say(const char* words, std::vector<SentenceValue> values = {}) {
    return {.context = context, .words = words, .values = std::move(values)};
}

// "02:14", with the date in front of another day's.
Moment since(double moment, const std::optional<double>& now, const ZoneOffset& zone) {
    const auto then = static_cast<std::int64_t>(std::floor(moment));
    const std::int64_t day = day_of(then, zone);
    const bool is_today = now && day_of(static_cast<std::int64_t>(*now), zone) == day;
    return {then, !is_today, (is_today ? "" : date_of_day(day) + ' ') + hours_minutes(then, zone)};
}

Sentence name_on_screen(Verdict verdict, const ChronyReports& reports, const ZoneOffset& zone) {
    switch (verdict) {
    case Verdict::unavailable:
        return say(TV_TEXT("headline", "Not available"));
    case Verdict::local:
        return say(TV_TEXT("headline", "Own time only"));
    case Verdict::unsynchronised:
        return say(TV_TEXT("headline", "Not synchronised"));
    case Verdict::holdover:
        if (reports.tracking->reference_time)
            return say(TV_TEXT("headline", "Holdover since %1"),
                       {since(*reports.tracking->reference_time, reports.now, zone)});
        return say(TV_TEXT("headline", "Holdover"));
    case Verdict::correcting:
        return say(TV_TEXT("headline", "Correcting, %1 left"), {seconds(std::abs(*reports.tracking->system_time))});
    case Verdict::leap:
        return say(TV_TEXT("headline", "Synchronised, leap second pending"));
    case Verdict::synchronised:
        break;
    }
    return say(TV_TEXT("headline", "Synchronised"));
}

std::string host_of(const JudgedSource& source) {
    return source.name.value_or(source.data.source);
}

Sentence without_answer(const std::vector<JudgedSource>& sources) {
    if (sources.size() == 1)
        return say(TV_TEXT("headline", "its only source, %1, does not answer."), {host_of(sources.front())});
    return say(TV_TEXT("headline", "none of %1 sources answers."), {count(static_cast<double>(sources.size()))});
}

// Why no source keeps the clock right.
Sentence why_none(const std::vector<JudgedSource>& sources) {
    const auto has_rule = [](SelectionRule rule) {
        return [rule](const JudgedSource& source) {
            return source.rule == rule;
        };
    };
    if (sources.empty())
        return say(TV_TEXT("headline", "chronyd has no source to ask."));
    if (std::ranges::none_of(sources, [](const auto& source) { return was_heard_lately(source.data); }) &&
        std::ranges::none_of(sources, has_rule(SelectionRule::unsynchronised)))
        return without_answer(sources);
    if (const auto disagreeing = std::ranges::count_if(sources, has_rule(SelectionRule::no_majority)); disagreeing > 1)
        return say(TV_TEXT("headline", "%1 sources contradict each other, and no majority tells which are right."),
                   {count(static_cast<double>(disagreeing))});
    if (sources.size() == 1)
        return say(TV_TEXT("headline", "its only source, %1, cannot be used."), {host_of(sources.front())});
    return say(TV_TEXT("headline", "none of %1 sources can be used."), {count(static_cast<double>(sources.size()))});
}

Sentence who_is_followed(const std::vector<JudgedSource>& sources) {
    const auto best = std::ranges::find(sources, SelectionRule::best, &JudgedSource::rule);
    const auto used = std::ranges::count_if(sources, [](const auto& source) { return is_used(source.data); });
    if (best == sources.end())
        return say(TV_TEXT("headline", "%1 sources are used together."), {count(static_cast<double>(used))});
    if (used == 1)
        return say(TV_TEXT("headline", "chronyd follows %1."), {host_of(*best)});
    return say(TV_TEXT("headline", "chronyd follows %1, the best of %2 that it uses together."),
               {host_of(*best), count(static_cast<double>(used))});
}

Sentence say_correction(double system_time) {
    const char* const words =
        system_time < 0 ? TV_TEXT("headline", "the clock is behind, and chronyd makes it run faster until it is right.")
                        : TV_TEXT("headline", "the clock is ahead, and chronyd makes it run slower until it is right.");
    return say(words);
}

Sentence say_leap(const std::string& leap) {
    return say(leap == "Insert second" ? TV_TEXT("headline", "a second is put in at the end of this month (UTC).")
                                       : TV_TEXT("headline", "a second is left out at the end of this month (UTC)."));
}

std::optional<Sentence> reason_of(Verdict verdict, const ChronyReports& reports) {
    if (verdict == Verdict::unavailable)
        return std::nullopt;
    if (verdict == Verdict::correcting)
        return say_correction(*reports.tracking->system_time);
    if (verdict == Verdict::leap)
        return say_leap(reports.tracking->leap_status);
    if (verdict == Verdict::local)
        return say(TV_TEXT("headline", "chronyd takes this machine's own clock for right (directive local)."));
    if (!reports.sources)
        return std::nullopt;
    const std::vector<JudgedSource> sources = judged_sources(reports);
    return verdict == Verdict::synchronised ? who_is_followed(sources) : why_none(sources);
}

Sentence error_of(Verdict verdict, const std::optional<ErrorBudget>& budget, const std::optional<double>& expected) {
    if (!budget)
        return say(TV_TEXT("headline", "Nothing tells how far off the clock is."));
    const Quantity bound = seconds(budget->bound);
    if (verdict == Verdict::holdover)
        return say(TV_TEXT("headline", "Certainly within ±%1, growing %2 an hour."),
                   {bound, seconds(budget->growth * 3600)});
    const bool is_measured = verdict != Verdict::correcting && expected && *expected < budget->bound;
    if (is_measured)
        return say(TV_TEXT("headline", "Certainly within ±%1, probably within ±%2."), {bound, seconds(*expected)});
    return say(TV_TEXT("headline", "Certainly within ±%1."), {bound});
}

} // namespace

Headline headline(const ChronyReports& reports, const std::optional<ErrorBudget>& budget,
                  const std::optional<double>& expected, const ZoneOffset& zone) {
    const Verdict verdict = judge(reports);
    Headline answer{.verdict = verdict,
                    .name = name_on_screen(verdict, reports, zone),
                    .reason = reason_of(verdict, reports),
                    .error = error_of(verdict, budget, expected),
                    .caution = {}};
    if (verdict != Verdict::unavailable && reports.steers == false)
        answer.caution = say(TV_TEXT("headline", "This chronyd was told to leave the system clock alone, so none of "
                                                 "this is about the system clock."));
    return answer;
}

} // namespace tickervantage
