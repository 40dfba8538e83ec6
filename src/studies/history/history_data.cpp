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

void HistoryData::add(const LoggedNews& news) {
    std::vector<double> times = news.values.times;
    std::ranges::sort(times);
    for (const double time : times) {
        const double before = m_logged.empty() ? time : m_logged.back();
        if (time > before && time - before <= longest_silence)
            take_back_stored(before, time);
        m_logged.insert(std::ranges::upper_bound(m_logged, time), time);
        add_origin({time, time}, HistoryOrigin::log);
        reach_to(time, time);
    }
    for (std::size_t line = 0; line < history_lines; ++line)
        for (const TimedExtent& value : news.values.lines[line])
            m_lines[line].add(value);
    for (const LoggedTemperature& one : news.temperatures)
        add_temperature({}, one.time, one.celsius);
    for (const SourceRow& row : news.selections)
        add_logged(row);
    for (const ClockEvent& event : news.withdrawn)
        withdraw(event);
    for (const ClockEvent& event : news.events)
        add(event);
    ++m_version;
}

// The log had nothing between these times, so that what is there came from the store.
void HistoryData::take_back_stored(double from, double to) {
    for (TimedValues& line : m_lines)
        line.remove_between(from, to);
    for (OriginStretch& one : m_origins) {
        if (one.origin == HistoryOrigin::log || one.range.to <= from || one.range.from >= to)
            continue;
        if (one.range.from < from)
            one.range.to = from;
        else
            one.range.from = to;
    }
    std::erase_if(m_origins, [](const OriginStretch& one) { return one.range.to < one.range.from; });
    std::erase_if(m_marks, [=](const HistoryMark& mark) {
        const bool is_reference = mark.kind == MarkKind::source || mark.kind == MarkKind::lost;
        return is_reference && !mark.sentence && mark.time > from && mark.time < to;
    });
}

void HistoryData::withdraw(const ClockEvent& event) {
    const auto found = std::ranges::find_if(m_marks, [&event](const HistoryMark& mark) {
        return mark.time == event.time && mark.kind == mark_kind(event.kind) && mark.sentence &&
               mark.source == event.source;
    });
    if (found != m_marks.end())
        m_marks.erase(found);
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

void HistoryData::replace_temperatures(std::vector<HistoryTemperature> all) {
    for (HistoryTemperature& one : m_temperatures)
        if (one.sensor.empty())
            all.insert(all.begin(), std::move(one));
    m_temperatures = std::move(all);
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

// A stretch goes on where the newest one of its origin lately ended; of the store only if no log told since.
void HistoryData::add_origin(const TimeRange& range, HistoryOrigin origin) {
    const auto newest = std::ranges::find(m_origins.rbegin(), m_origins.rend(), origin, &OriginStretch::origin);
    const bool is_late =
        newest == m_origins.rend() || range.from - newest->range.to > longest_silence ||
        (origin == HistoryOrigin::store && std::ranges::any_of(m_origins, [&](const auto& one) {
             return one.origin == HistoryOrigin::log && one.range.to > newest->range.to && one.range.from < range.from;
         }));
    if (is_late)
        m_origins.push_back({range, origin});
    else
        newest->range.to = std::max(newest->range.to, range.to);
}

void HistoryData::reach_to(double from, double to) {
    if (!m_extent)
        m_extent = TimeRange{from, to};
    m_extent = TimeRange{std::min(m_extent->from, from), std::max(m_extent->to, to)};
}

} // namespace tickervantage
