#include "watch/health.h"

#include "base/sentence.h"
#include "watch/observation.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, 4> state_words{"OK", "WARNING", "CRITICAL", "UNKNOWN"};

// What would end the text, or a label of the performance data, or could not be shown everywhere.
std::string plain(const std::string& text) {
    std::string plain = harmless(text);
    std::ranges::replace_if(
        plain, [](char sign) { return sign == '|' || sign == '\'' || sign == '"' || sign < ' ' || sign > '~'; }, '.');
    return plain;
}

// "8.1 ms", "27 us": without zeros that tell nothing, and in ASCII.
std::string amount(double seconds) {
    std::string text = text_of(quantity::seconds(seconds));
    if (const auto micro = text.find("µ"); micro != std::string::npos)
        text.replace(micro, std::string_view("µ").size(), "u");
    const auto blank = text.find(' ');
    if (blank == std::string::npos || text.substr(0, blank).find('.') == std::string::npos)
        return text;
    std::string number = text.substr(0, blank);
    number.erase(number.find_last_not_of('0') + 1);
    number.erase(number.find_last_not_of('.') + 1);
    return number + text.substr(blank);
}

// To the picosecond: chronyc prints nanoseconds, and sums of them would show the rounding of binary numbers.
std::string measured(double value) {
    constexpr double units = 1e12;
    return plain_number(std::round(value * units) / units);
}

struct Reading {
    const ChronyReports& reports;
    const HealthLimits& limits;
    Verdict verdict = judge(reports);
    std::vector<JudgedSource> sources = judged_sources(reports);
    std::optional<ErrorBudget> budget = error_budget(reports);
    std::optional<double> age = age_of_update(reports);
};

HealthState worse(HealthState one, HealthState other) {
    return std::max(one, other);
}

HealthState by_ranges(double value, const AlertRange& warning, const AlertRange& critical) {
    if (alerts(critical, value))
        return HealthState::critical;
    return alerts(warning, value) ? HealthState::warning : HealthState::ok;
}

HealthState judge_sources(const Reading& reading) {
    if (!reading.reports.sources || reading.verdict == Verdict::holdover)
        return HealthState::ok;
    return by_ranges(static_cast<double>(usable_count(reading.sources)), reading.limits.sources_warning,
                     reading.limits.sources_critical);
}

HealthState judge_bound(const Reading& reading) {
    return reading.budget
               ? by_ranges(reading.budget->bound, reading.limits.bound_warning, reading.limits.bound_critical)
               : HealthState::ok;
}

HealthState judge_holdover(const Reading& reading) {
    if (reading.verdict != Verdict::holdover)
        return HealthState::ok;
    if (!reading.age)
        return HealthState::warning; // for how long is not known
    if (*reading.age >= reading.limits.holdover_critical)
        return HealthState::critical;
    return *reading.age >= reading.limits.holdover_warning ? HealthState::warning : HealthState::ok;
}

HealthState state_of(const Reading& reading) {
    const bool is_kept = follows_time(reading.verdict) || reading.verdict == Verdict::holdover;
    return is_kept ? worse(judge_bound(reading), worse(judge_holdover(reading), judge_sources(reading)))
                   : HealthState::critical;
}

std::string followed(const Reading& reading) {
    const auto best = std::ranges::find(reading.sources, SelectionRule::best, &JudgedSource::rule);
    return best == reading.sources.end() ? "" : " to " + plain(best->name.value_or(best->data.source));
}

std::string verdict_words(const Reading& reading) {
    switch (reading.verdict) {
    case Verdict::unavailable:
        return "not available" + (reading.reports.refusal.empty() ? "" : ": " + plain(reading.reports.refusal));
    case Verdict::local:
        return "own time only, which nothing keeps right";
    case Verdict::unsynchronised:
        return "not synchronised";
    case Verdict::holdover:
        return "holdover" +
               (reading.age ? " for " + tickervantage::text_of(quantity::duration(*reading.age)) : std::string());
    case Verdict::correcting:
        return "correcting, " + amount(std::abs(*reading.reports.tracking->system_time)) + " left";
    case Verdict::leap:
        return "synchronised" + followed(reading) + ", leap second pending";
    case Verdict::synchronised:
        break;
    }
    return "synchronised" + followed(reading);
}

std::string sources_words(const Reading& reading) {
    const auto used = std::ranges::count_if(reading.sources, [](const JudgedSource& source) {
        return is_used(source.data) && was_heard_lately(source.data);
    });
    std::string words = fmt::format(": {} of {} sources in use", used, reading.sources.size());
    if (judge_sources(reading) != HealthState::ok)
        words += fmt::format(", {} usable", usable_count(reading.sources));
    return words;
}

std::string bound_words(const Reading& reading) {
    std::string words = "; certainly within " + amount(reading.budget->bound);
    const HealthState state = judge_bound(reading);
    if (state == HealthState::ok)
        return words;
    const auto& range = state == HealthState::critical ? reading.limits.bound_critical : reading.limits.bound_warning;
    return words + " (limit " + text_of(range) + " s)";
}

void add_value(std::string& line, const std::string& value, const std::string& limits) {
    line += ' ' + value + ';' + limits;
}

std::string performance(const Reading& reading) {
    const HealthLimits& limits = reading.limits;
    std::string text;
    if (reading.budget)
        add_value(text, "bound=" + measured(reading.budget->bound) + 's',
                  text_of(limits.bound_warning) + ';' + text_of(limits.bound_critical) + ";0");
    if (reading.reports.tracking && reading.reports.tracking->system_time)
        add_value(text, "offset=" + measured(*reading.reports.tracking->system_time) + 's', ";;;");
    if (reading.reports.sources)
        add_value(text, fmt::format("usable={}", usable_count(reading.sources)),
                  text_of(limits.sources_warning) + ';' + text_of(limits.sources_critical) + ";0");
    if (reading.age)
        add_value(text, "age=" + plain_number(std::round(*reading.age)) + 's',
                  plain_number(limits.holdover_warning) + ';' + plain_number(limits.holdover_critical) + ";0");
    return text.empty() ? "" : " |" + text;
}

std::string line_of(HealthState state, const std::string& words) {
    return fmt::format("CLOCK {} - {}", state_words.at(static_cast<std::size_t>(state)), words);
}

} // namespace

HealthAnswer health(const ChronyReports& reports, const HealthLimits& limits) {
    const Reading reading{.reports = reports, .limits = limits};
    std::string words = verdict_words(reading);
    if (reports.sources)
        words += sources_words(reading);
    if (reading.budget)
        words += bound_words(reading);
    if (reading.verdict != Verdict::unavailable && reports.steers == false)
        words += "; this chronyd leaves the system clock alone";
    const HealthState state = state_of(reading);
    return {.state = state, .line = line_of(state, words) + performance(reading)};
}

HealthAnswer unknown_health(const std::string& why) {
    return {.state = HealthState::unknown, .line = line_of(HealthState::unknown, plain(why))};
}

} // namespace tickervantage
