// Reads this machine's chronyd while the window shows another machine's clock: the history, the watch and whoever waits
// for the frequency go on with this one. Main thread only.
#pragma once

#include "chrony/status/status_cycle.h"

#include <functional>
#include <memory>

namespace tickervantage {

class QuietReading {
public:
    using Told = std::function<void(std::shared_ptr<const ClockTruth>)>;

    // Begins at once, and goes on until it is destroyed. What it is made from outlives it.
    QuietReading(const StatusCycleParts& parts, StatusCycleOptions options, int interval_seconds, Told told);

private:
    void read();
    void apply(const RefreshReading& reading);

    StatusCycleParts m_parts;
    StatusCycleOptions m_options;
    Told m_told;
    std::shared_ptr<const Runchronyc> m_chronyc;
    std::shared_ptr<RefreshTools> m_tools; // used on the queue only
    std::unique_ptr<Repeater> m_timer;
    bool m_is_reading = false;
    Background m_background;
};

} // namespace tickervantage
