#include "studies/events/tracking_events.h"

#include "studies/events/event_words.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tickervantage {

using event_words::say;

namespace {

// chronyd's first record of a run: no reference yet, and of the way to it only what it assumes before any measurement.
bool is_beginning(const TrackingLine& line) {
    return !has_reference(line) && line.root_delay.value == 1 && line.rootdispersion.value == 1;
}

} // namespace

void TrackingEvents::add(const TrackingLine& line, const EventPlace& place) {
    compare_time(line.timestamp, place);
    if (is_beginning(line)) {
        begin_anew(line.timestamp, place);
        return;
    }
    if (!has_reference(line)) {
        note_loss(line.timestamp, place);
        return;
    }
    compare_reference(line, place);
    compare_frequency(line, place);
}

ClockEvent& TrackingEvents::tell(std::int64_t time, EventKind kind, const EventPlace& place, Sentence sentence) {
    m_events.push_back(
        {.time = static_cast<double>(time), .kind = kind, .sentence = std::move(sentence), .place = place});
    return m_events.back();
}

void TrackingEvents::compare_time(std::int64_t time, const EventPlace& place) {
    const auto before = std::exchange(m_time, time);
    if (!before)
        return;
    const std::int64_t interval = time - *before;
    if (interval < 0) {
        tell(time, EventKind::backwards, place,
             say(TV_TEXT("clock_events", "The time of the records went back by %1."),
                 {quantity::duration(static_cast<double>(-interval))}))
            .value = static_cast<double>(interval);
        return;
    }
    if (m_interval_count >= intervals_judged_by) {
        auto usual = m_intervals;
        std::ranges::sort(usual);
        constexpr std::int64_t times = 4;
        // The mean of the two in the middle, doubled so that it stays whole; times have whole seconds, so that quicker
        // records count as one a second.
        const std::int64_t twice =
            std::max<std::int64_t>(usual[intervals_judged_by / 2 - 1] + usual[intervals_judged_by / 2], 2);
        if (2 * interval > times * twice)
            tell(time, EventKind::gap, place,
                 say(TV_TEXT("clock_events", "Nothing was logged for %1, where a record every %2 was usual."),
                     {quantity::duration(static_cast<double>(interval)),
                      quantity::duration(static_cast<double>(twice) / 2)}))
                .value = static_cast<double>(interval);
    }
    m_intervals[m_interval_count++ % intervals_judged_by] = interval;
}

// What the clock's frequency was in the run before says nothing of the first guesses of this one.
void TrackingEvents::begin_anew(std::int64_t time, const EventPlace& place) {
    tell(time, EventKind::start, place, say(TV_TEXT("clock_events", "chronyd was started.")));
    m_frequency = std::numeric_limits<double>::quiet_NaN();
    m_is_lost = true;
}

void TrackingEvents::note_loss(std::int64_t time, const EventPlace& place) {
    if (std::exchange(m_is_lost, true) || m_reference.empty())
        return;
    auto& event =
        tell(time, EventKind::lost, place,
             say(TV_TEXT("clock_events", "No source was followed any more; the last one was %1."), {m_reference}));
    event.source = m_reference;
    m_loss = m_events.size() - 1;
}

void TrackingEvents::compare_reference(const TrackingLine& line, const EventPlace& place) {
    m_is_lost = false;
    if (const auto loss = std::exchange(m_loss, std::nullopt)) {
        ClockEvent& event = m_events[*loss];
        const double length = static_cast<double>(line.timestamp) - event.time;
        if (length >= 0) {
            event.value = length;
            event.sentence = say(TV_TEXT("clock_events", "No source was followed for %2; the last one was %1."),
                                 {event.source, quantity::duration(length)});
        }
    }
    if (!m_reference.empty() && m_reference != line.address)
        tell(line.timestamp, EventKind::source, place,
             say(TV_TEXT("clock_events", "%1 was followed from now on, instead of %2."),
                 {std::string(line.address), m_reference}))
            .source = line.address;
    m_reference = line.address;
    const char leap = line.el.empty() ? '?' : line.el.front();
    if (m_leap == 'N' && (leap == '+' || leap == '-')) {
        const bool is_inserted = leap == '+';
        tell(line.timestamp, EventKind::leap, place,
             say(is_inserted
                     ? TV_TEXT("clock_events", "A leap second was announced: one more at the end of the month.")
                     : TV_TEXT("clock_events", "A leap second was announced: one less at the end of the month.")))
            .value = is_inserted ? 1 : -1;
    }
    m_leap = leap;
}

void TrackingEvents::compare_frequency(const TrackingLine& line, const EventPlace& place) {
    const double jump = line.frequency.value - m_frequency;
    constexpr double skews = 5;
    constexpr double least = 0.5; // ppm
    // An absent number compares false, and before the first record there is none.
    if (std::abs(jump) > skews * m_skew && std::abs(jump) > least)
        tell(line.timestamp, EventKind::frequency, place,
             say(TV_TEXT("clock_events", "The frequency of the clock jumped by %1."),
                 {Quantity{.value = jump, .kind = QuantityKind::parts_per_million}}))
            .value = jump;
    m_frequency = line.frequency.value;
    m_skew = line.skew.value;
}

} // namespace tickervantage
