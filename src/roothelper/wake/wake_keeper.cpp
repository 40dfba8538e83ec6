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
        m_parts.report("The system bus has gone; waiting for it.");
        break;
    }
}

void WakeKeeper::connect() {
    std::string sentence;
    m_connected = m_parts.signals.connect(sentence) == 0;
    if (m_connected) {
        m_complaint.clear();
        m_pause = {};
        m_parts.report("Waiting for the machine to wake up.");
        return;
    }
    if (sentence != m_complaint)
        m_parts.report(sentence);
    m_complaint = sentence;
    m_pause = std::clamp(m_pause * 2, shortest, longest);
    m_parts.pause(m_pause);
}

void WakeKeeper::ask() {
    std::string answer;
    m_tries = m_parts.correct(answer) == 0 ? 0 : m_tries - 1;
    m_parts.report("After waking up: " + answer);
}

} // namespace tickervantage
