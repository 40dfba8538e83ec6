// What the records of a tracking log tell: the start of chronyd, another reference, the loss of it, jumps of the
// frequency, gaps, time that goes back, and announced leap seconds.
//
// Records in the order of the log, events out; nothing is judged before there is enough to judge by. One thread.
// Source: chrony.conf(5), directive log, option tracking.
#pragma once

#include "chrony/log/tracking_line.h"
#include "studies/events/clock_event.h"

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

class TrackingEvents {
public:
    void add(const TrackingLine& line, const EventPlace& place);

    [[nodiscard]] const std::vector<ClockEvent>& events() const { return m_events; }

private:
    void compare_time(std::int64_t time, const EventPlace& place);
    void compare_reference(const TrackingLine& line, const EventPlace& place);
    void compare_frequency(const TrackingLine& line, const EventPlace& place);
    void begin_anew(std::int64_t time, const EventPlace& place);
    void note_loss(std::int64_t time, const EventPlace& place);
    ClockEvent& tell(std::int64_t time, EventKind kind, const EventPlace& place, Sentence sentence);

    static constexpr std::size_t intervals_judged_by = 16;

    std::vector<ClockEvent> m_events;
    std::optional<std::int64_t> m_time;                          // of the record before
    std::array<std::int64_t, intervals_judged_by> m_intervals{}; // s, the newest ones in a ring
    std::size_t m_interval_count = 0;
    std::string m_reference;                                       // the last one; empty: none yet
    char m_leap = 0;                                               // of it
    double m_frequency = std::numeric_limits<double>::quiet_NaN(); // of its record, ppm; NaN: absent
    double m_skew = 0;                                             // ppm
    bool m_is_lost = false;
    std::optional<std::size_t> m_loss; // the event that waits for the end of the loss
};

} // namespace tickervantage
