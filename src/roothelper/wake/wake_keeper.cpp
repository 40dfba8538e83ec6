#include "roothelper/wake/wake_keeper.h"

#include <algorithm>

namespace tickervantage {
namespace {

constexpr std::chrono::milliseconds shortest{1000};
constexpr std::chrono::milliseconds longest{30'000};
constexpr int tries_after_waking = 6; // the last one about half a minute after the first

} // namespace

void WakeKeeper::turn() {
    if (!m_connected) {
        connect();
        return;
    }
    switch (m_parts.signals.wait(m_tries > 0 ? std::optional(m_patience) : std::nullopt)) {
    case SleepSignals::News::woke:
        m_tries = tries_after_waking;
        m_patience = shortest;
        ask();
        break;
    case SleepSignals::News::nothing:
        m_patience *= 2;
        ask();
        break;
    case SleepSignals::News::lost:
        m_connected = false;
        report("The system bus has gone; waiting for it.");
        break;
    }
}

void WakeKeeper::connect() {
    const auto connected = m_parts.signals.connect();
    m_connected = connected.has_value();
    if (connected) {
        m_complaint.clear();
        m_pause = {};
        report("Waiting for the machine to wake up.");
        return;
    }
    const auto complaint = english(connected.error());
    if (complaint != m_complaint)
        report(complaint);
    m_complaint = complaint;
    m_pause = std::clamp(m_pause * 2, shortest, longest);
    m_parts.pause.pause(m_pause);
}

void WakeKeeper::ask() {
    const auto done = m_parts.correction.correct();
    m_tries = done ? 0 : m_tries - 1;
    report("After waking up: " + (done ? "200 OK" : english(done.error())));
}

} // namespace tickervantage
