#include "watch/log_alarms.h"

#include "base/number_text.h"
#include "base/text_lines.h"
#include "chrony/data/reports.h"
#include "watch/engine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace tickervantage {
namespace {

struct Record {
    double time = 0;
    std::optional<double> offset; // s
    std::optional<double> bound;  // s: chronyd's "maximum estimated error", of later versions than 2.0
    bool has_reference = false;
};

// "2026-11-22 05:23:20 192.0.2.1 3 -0.156 0.247 -5.6e-08 N 1 4e-06 …"
std::optional<Record> record_on(std::string_view line) {
    constexpr std::size_t offset_column = 6;
    constexpr std::size_t bound_column = 13;
    const auto parts = words(line);
    if (parts.size() <= offset_column)
        return std::nullopt;
    const auto time = moment_in(std::string(parts[0]) + 'T' + std::string(parts[1]) + 'Z');
    if (!time)
        return std::nullopt;
    Record record{.time = *time, .offset = number_from_text<double>(parts[offset_column]), .bound = {}};
    record.has_reference = parts[3] != "0";
    if (parts.size() > bound_column)
        record.bound = number_from_text<double>(parts[bound_column]);
    return record;
}

// Counts what is raised anew from one observation to the next.
class Counter {
public:
    explicit Counter(const std::vector<WatchRule>& rules) : m_engine(rules, 0, 0) {}

    void observe(const WatchObservation& seen, double now) {
        const WatchMemory before = m_engine.memory();
        if (!m_engine.observe(seen, now))
            return;
        for (const WatchRule& rule : m_engine.raised())
            if (std::ranges::find(before.raised, name_of(rule.quantity)) == before.raised.end())
                ++*counts.at(static_cast<std::size_t>(rule.quantity));
    }

    std::array<std::optional<int>, watch_quantities.size()> counts;

private:
    WatchEngine m_engine;
};

} // namespace

std::optional<LogAlarms> alarms_in_log(std::string_view text, const std::vector<WatchRule>& rules) {
    using enum WatchQuantity;
    Counter counter(rules);
    for (const WatchQuantity known : {holdover, bound, step})
        counter.counts.at(static_cast<std::size_t>(known)) = 0;
    const auto rule = std::ranges::find(rules, holdover, &WatchRule::quantity);
    const double limit = rule == rules.end() ? std::numeric_limits<double>::infinity() : rule->raise;
    std::optional<double> first;
    std::optional<double> last;      // record
    std::optional<double> reference; // the last record with one
    for (const std::string_view line : non_empty_lines(text)) {
        const auto record = record_on(line);
        if (!record || (last && record->time < *last)) // a clock that was set back begins anew
            continue;
        first = first.value_or(record->time);
        WatchObservation seen;
        seen.at(bound) = record->bound;
        seen.at(step) = record->offset ? std::optional(std::abs(*record->offset)) : std::nullopt;
        counter.observe(seen, record->time);
        if (record->time - reference.value_or(record->time) > limit)
            ++*counter.counts.at(static_cast<std::size_t>(holdover));
        if (record->has_reference || !reference || record->time - *reference > limit)
            reference = record->time; // each silence counts once
        last = record->time;
    }
    if (!first || *last <= *first)
        return std::nullopt;
    return LogAlarms{.seconds = *last - *first, .raised = counter.counts};
}

} // namespace tickervantage
