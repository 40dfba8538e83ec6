// The part of a level axis in sight, and the way one came there: back and forward as in a browser. Of time in seconds;
// of an axis over decades in logarithms.
//
// A plain value; one thread.
#pragma once

#include "draw/plots/time_marks.h"

#include <optional>
#include <vector>

namespace tickervantage {

// Around `about`, which keeps its place; factor 2 shows twice as much. Not shorter than that, not longer than 200
// years.
[[nodiscard]] TimeRange zoomed(const TimeRange& range, double about, double factor, double shortest = 1);

// Moved so that it lies within the limits; where it is longer, it is centred on them.
[[nodiscard]] TimeRange kept_within(TimeRange range, const TimeRange& limits);

class ViewPath {
public:
    [[nodiscard]] const TimeRange& now() const { return m_now; }

    // The place before can be gone back to.
    void go(const TimeRange& range);
    // One of many small movements, such as a drag's: together they are one step of the way.
    void slide(const TimeRange& range);
    // A movement that nobody made, such as that of new data.
    void follow(const TimeRange& range) { m_now = range; }
    // All that there is has grown, or become less: who had it in sight has so again, also on the way back.
    void extend(const TimeRange& was, const TimeRange& is);

    [[nodiscard]] bool can_go_back() const { return !m_before.empty(); }
    [[nodiscard]] bool can_go_forward() const { return !m_after.empty(); }
    void back();
    void forward();

private:
    TimeRange m_now;
    bool m_is_sliding = false;
    std::vector<TimeRange> m_before;
    std::vector<TimeRange> m_after;
};

} // namespace tickervantage
