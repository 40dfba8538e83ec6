// The worst lateness of a timer in the event loop of the thread that makes it.
#pragma once

#include "bench/timing.h"

#include <QTimer>

#include <algorithm>
#include <chrono>

namespace tickervantage::bench {

inline constexpr std::chrono::milliseconds beat{5};
inline constexpr double beat_ms = 5;

class StallMeter {
public:
    StallMeter() {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
        m_timer.start(beat);
        restart();
    }
    void restart() {
        m_stall_ms = m_busy_ms = 0;
        m_last = Clock::now();
        m_last_busy = thread_seconds();
    }
    [[nodiscard]] double stall_ms() const { return m_stall_ms; }

    // The most processor time that the thread used between two ticks: what the stall would be on an idle machine.
    [[nodiscard]] double busy_ms() const { return m_busy_ms; }

private:
    void tick() {
        m_stall_ms = std::max(m_stall_ms, 1000 * seconds_since(m_last) - beat_ms);
        m_busy_ms = std::max(m_busy_ms, 1000 * (thread_seconds() - m_last_busy));
        m_last = Clock::now();
        m_last_busy = thread_seconds();
    }
    QTimer m_timer;
    Clock::time_point m_last;
    double m_last_busy = 0;
    double m_stall_ms = 0;
    double m_busy_ms = 0;
};

} // namespace tickervantage::bench
