#include "studies/laboratory/compensation_gain.h"

#include "chrony/log/log_files.h"
#include "chrony/log/log_table.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace tickervantage {
namespace {

constexpr double hour = 3600;
constexpr double day = 24 * hour;
constexpr double longest_wait = 600; // s: an older compensation is not known to hold any more
constexpr double fewest_hours = 20;  // that make a day
constexpr std::size_t fewest_in_day = 10;
constexpr int days_in_week = 7;
constexpr std::size_t fewest_days_in_week = 6;

// With the compensation and without it.
struct Pair {
    double time = 0;
    double with = 0;
    double without = 0;
};

std::vector<Pair> pairs_of(const NotedCompensation& noted, double since) {
    std::vector<Pair> pairs;
    auto next = noted.compensations.begin();
    for (const auto& [time, frequency] : noted.frequencies) {
        if (time < since)
            continue;
        next = std::upper_bound(next, noted.compensations.end(), time,
                                [](double at, const NotedValue& one) { return at < one.time; });
        if (next == noted.compensations.begin() || time - std::prev(next)->time > longest_wait)
            continue;
        pairs.push_back({time, frequency, frequency - std::prev(next)->value});
    }
    return pairs;
}

template <class Value>
double variance_of(const std::vector<Pair>& pairs, Value value) {
    const auto count = static_cast<double>(pairs.size());
    double mean = 0;
    for (const Pair& one : pairs)
        mean += std::invoke(value, one) / count;
    double sum = 0;
    for (const Pair& one : pairs)
        sum += (std::invoke(value, one) - mean) * (std::invoke(value, one) - mean);
    return sum / count;
}

// None where a day holds too little.
std::optional<DayVariances> variances_between(const std::vector<Pair>& pairs, double from, double to) {
    std::vector<Pair> inside;
    for (const Pair& one : pairs)
        if (one.time > from && one.time <= to)
            inside.push_back(one);
    if (inside.size() < fewest_in_day || inside.back().time - inside.front().time < fewest_hours * hour)
        return std::nullopt;
    return DayVariances{.before = variance_of(inside, &Pair::without), .after = variance_of(inside, &Pair::with)};
}

// The days that end at that moment, the last one first.
std::vector<DayVariances> days_before(const std::vector<Pair>& pairs, double end) {
    std::vector<DayVariances> days;
    for (int back = 0; back < days_in_week; ++back)
        if (const auto one = variances_between(pairs, end - (back + 1) * day, end - back * day))
            days.push_back(*one);
    return days;
}

std::optional<double> deviation_before(const NotedCompensation& noted, double since) {
    std::vector<Pair> pairs;
    for (const auto& [time, frequency] : noted.frequencies)
        if (time < since)
            pairs.push_back({time, frequency, frequency});
    const auto days = days_before(pairs, since);
    return days.empty() ? std::nullopt : std::optional(day_gain(days).before);
}

Result<std::vector<NotedValue>> read_values(FollowedFiles& files, const std::vector<LogFile>& logs, LogKind kind,
                                            std::size_t column) {
    LogTable table(kind);
    for (const LogFile& log : logs) {
        LogCount count;
        if (log.kind != kind)
            continue;
        if (auto read = read_records(files, log.path, count,
                                     [&table](std::string_view line, std::size_t) { return table.add_line(line); });
            !read)
            return tl::unexpected(read.error());
    }
    std::vector<NotedValue> values;
    for (std::size_t at = 0; at < table.size(); ++at)
        if (const double value = table.number(column, at); std::isfinite(value))
            values.push_back({table.time(at), value});
    return values;
}

} // namespace

Result<NotedCompensation> read_noted_compensation(FollowedFiles& files, const std::string& folder) {
    const auto logs = find_logs(files, {folder});
    if (!logs)
        return tl::unexpected(logs.error());
    auto frequencies = read_values(files, *logs, LogKind::tracking, tracking_column::frequency);
    if (!frequencies)
        return tl::unexpected(frequencies.error());
    auto compensations = read_values(files, *logs, LogKind::tempcomp, tempcomp_column::compensation);
    if (!compensations)
        return tl::unexpected(compensations.error());
    return NotedCompensation{*std::move(frequencies), *std::move(compensations)};
}

bool CompensationGain::is_worse() const {
    const auto& longest = week ? week : day;
    return longest && longest->gain < 1;
}

CompensationGain gain_since(NotedCompensation noted, double since) {
    std::ranges::stable_sort(noted.frequencies, {}, &NotedValue::time);
    std::ranges::stable_sort(noted.compensations, {}, &NotedValue::time);
    CompensationGain gain;
    gain.former = deviation_before(noted, since);
    const auto pairs = pairs_of(noted, since);
    if (pairs.empty())
        return gain;
    gain.hours = (pairs.back().time - pairs.front().time) / hour;
    const auto days = days_before(pairs, pairs.back().time);
    if (const auto last = variances_between(pairs, pairs.back().time - day, pairs.back().time))
        gain.day = day_gain({*last});
    if (days.size() >= fewest_days_in_week)
        gain.week = day_gain(days);
    return gain;
}

} // namespace tickervantage
