#include "studies/history/history_data.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {
namespace {

// Records further apart leave the time between them to others: chronyd's longest usual poll is 1024 s.
constexpr double longest_silence = 4096;

// Readings of the store come each few seconds; a source that is missing for so long was not there.
constexpr double longest_between_readings = 180;
constexpr double longest_between_selections = 1200; // chronyd makes one a poll

MaybeExtent value_of(const HistoryRow& row, HistoryQuantity quantity) {
    return row.values.at(static_cast<std::size_t>(quantity));
}

std::optional<TimedExtent> at_time(double time, const MaybeExtent& extent) {
    return extent ? std::optional(TimedExtent{time, extent->low, extent->mean, extent->high}) : std::nullopt;
}

HistoryMark mark_of(const HistoryEvent& event) {
    HistoryMark mark{.time = static_cast<double>(event.time), .from = event.from, .to = event.to};
    switch (event.kind) {
    case HistoryEventKind::verdict:
        mark.kind = MarkKind::verdict;
        break;
    case HistoryEventKind::reference:
        mark.kind = event.to.empty() ? MarkKind::lost : MarkKind::source;
        mark.source = event.to;
        break;
    case HistoryEventKind::chronyd:
        mark.kind = event.to == "gone" ? MarkKind::stop : MarkKind::start;
        break;
    case HistoryEventKind::job:
        mark.kind = MarkKind::job;
        break;
    }
    return mark;
}

// Else the same would be told twice.
bool is_told_by_logs(HistoryEventKind kind) {
    return kind == HistoryEventKind::reference;
}

bool is_earlier(const HistoryMark& one, const HistoryMark& other) {
    return one.time < other.time;
}

} // namespace

const LaneStretch* HistoryLane::at(double time) const {
    const auto after = std::ranges::upper_bound(stretches, time, {}, [](const auto& one) { return one.range.from; });
    if (after == stretches.begin())
        return nullptr;
    const auto& found = *std::prev(after);
    return time <= found.range.to ? &found : nullptr;
}

void HistoryData::set_log(LogValues log) {
    for (std::size_t line = 0; line < history_lines; ++line) {
        std::ranges::stable_sort(log.lines[line], {}, &TimedExtent::time);
        for (const TimedExtent& value : log.lines[line])
            m_lines[line].add(value);
    }
    m_logged = std::move(log.times);
    std::ranges::sort(m_logged);
    for (const double time : m_logged) {
        add_origin({time, time}, HistoryOrigin::log);
        reach_to(time, time);
    }
    ++m_version;
}

bool HistoryData::is_logged(double time) const {
    const auto after = std::ranges::lower_bound(m_logged, time);
    return after != m_logged.begin() && after != m_logged.end() && *after - *std::prev(after) <= longest_silence;
}

bool HistoryData::add(const StoredHistory& stored) {
    const std::int64_t known = m_newest_stored;
    for (const HistoryRow& row : stored.rows)
        if (row.time > known)
            add_row(row);
    for (const SourceRow& row : stored.sources)
        if (row.time > known)
            add_source(row, longest_between_readings);
    for (const HistoryEvent& event : stored.events)
        if (event.time > known && !(is_told_by_logs(event.kind) && is_logged(static_cast<double>(event.time))))
            add(mark_of(event));
    if (m_newest_stored == known)
        return false;
    ++m_version;
    return true;
}

void HistoryData::add_row(const HistoryRow& row) {
    m_newest_stored = std::max(m_newest_stored, row.time);
    const auto from = static_cast<double>(row.time);
    const double time = from + row.span / 2.0;
    reach_to(from, from + row.span);
    if (is_logged(time))
        return;
    add_origin({from, from + row.span}, HistoryOrigin::store);
    const auto put = [&](HistoryLine line, HistoryQuantity quantity) {
        if (const auto value = at_time(time, value_of(row, quantity)))
            m_lines[static_cast<std::size_t>(line)].add(*value);
    };
    // Readings between two updates repeat the offset of the former: it was measured once.
    const auto offset = value_of(row, HistoryQuantity::last_offset);
    if (row.span > 0 || !offset || offset->mean != m_last_offset)
        put(HistoryLine::offset, HistoryQuantity::last_offset);
    m_last_offset = offset ? std::optional(offset->mean) : std::nullopt;
    put(HistoryLine::bound, HistoryQuantity::bound);
    put(HistoryLine::frequency, HistoryQuantity::frequency_ppm);
    put(HistoryLine::root_delay, HistoryQuantity::root_delay);
    put(HistoryLine::root_dispersion, HistoryQuantity::root_dispersion);
    const auto frequency = value_of(row, HistoryQuantity::frequency_ppm);
    const auto skew = value_of(row, HistoryQuantity::skew_ppm);
    if (frequency && skew)
        m_lines[static_cast<std::size_t>(HistoryLine::skew_band)].add(
            {time, frequency->low - skew->high, frequency->mean, frequency->high + skew->high});
}

void HistoryData::add_source(const SourceRow& row, double longest_between) {
    const auto [place, is_new] = m_lane_of.try_emplace(row.source, m_lanes.size());
    if (is_new)
        m_lanes.emplace_back().source = row.source;
    HistoryLane& lane = m_lanes[place->second];
    const auto from = static_cast<double>(row.time);
    const TimeRange range{from, from + row.span};
    if (const auto offset = at_time(from + row.span / 2.0, row.offset))
        lane.offsets.add(*offset);
    const bool goes_on = !lane.stretches.empty() && from - lane.newest <= std::max(longest_between, 2.0 * row.span);
    if (goes_on) // the state lasted until this reading
        lane.stretches.back().range.to = std::max(lane.stretches.back().range.to, from);
    const bool is_same = goes_on && lane.stretches.back().rule == row.rule &&
                         lane.stretches.back().letter == row.letter && lane.stretches.back().reach == row.reach;
    if (is_same)
        lane.stretches.back().range.to = std::max(lane.stretches.back().range.to, range.to);
    else
        lane.stretches.push_back({range, row.rule, row.letter, row.reach});
    lane.newest = range.to;
}

void HistoryData::add_logged(const SourceRow& row) {
    const auto time = static_cast<double>(row.time);
    add_source(row, longest_between_selections);
    add_origin({time, time}, HistoryOrigin::log);
    reach_to(time, time);
    ++m_version;
}

void HistoryData::add_temperature(const std::string& sensor, double time, double celsius) {
    auto found = std::ranges::find(m_temperatures, sensor, &HistoryTemperature::sensor);
    if (found == m_temperatures.end())
        found = m_temperatures.insert(found, {sensor, {}});
    found->values.add(time, celsius);
    ++m_version;
}

void HistoryData::add(const ClockEvent& event) {
    add(HistoryMark{
        .time = event.time, .kind = mark_kind(event.kind), .sentence = event.sentence, .source = event.source});
}

void HistoryData::add(HistoryMark mark) {
    const auto place = std::ranges::upper_bound(m_marks, mark, is_earlier);
    m_marks.insert(place, std::move(mark));
    ++m_version;
}

void HistoryData::add_origin(const TimeRange& range, HistoryOrigin origin) {
    if (!m_origins.empty() && m_origins.back().origin == origin &&
        range.from - m_origins.back().range.to <= longest_silence) {
        m_origins.back().range.to = std::max(m_origins.back().range.to, range.to);
        return;
    }
    m_origins.push_back({range, origin});
}

void HistoryData::reach_to(double from, double to) {
    if (!m_extent)
        m_extent = TimeRange{from, to};
    m_extent = TimeRange{std::min(m_extent->from, from), std::max(m_extent->to, to)};
}

} // namespace tickervantage
