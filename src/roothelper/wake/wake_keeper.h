// Has the clock corrected after each wake-up, for as long as the program runs.
//
// Neither a bus that goes away nor a chronyd that is down ends it: it connects again after growing pauses, and asks
// again a few times after a wake-up that chronyd did not answer, because right then both may still be on their way up.
#pragma once

#include "base/failure.h"
#include "base/logger.h"
#include "base/pause.h"
#include "roothelper/wake/wake_correction.h"

#include <chrono>
#include <optional>
#include <string>
#include <utility>

namespace tickervantage {

// Word that the machine has woken up.
class SleepSignals {
public:
    enum class News : unsigned char {
        woke,
        nothing, // the time is over
        lost,    // nothing will come any more; connect() again
    };

    virtual ~SleepSignals() = default;

    // A failure when there is nobody to listen to.
    [[nodiscard]] virtual Result<> connect() = 0;

    // Blocks until there is news, for ever without a limit.
    [[nodiscard]] virtual News wait(std::optional<std::chrono::milliseconds> limit) = 0;
};

struct WakeKeeperParts {
    SleepSignals& signals;
    const WakeCorrection& correction;
    Pause& pause;
    Logger& log; // what happened, a line each
};

class WakeKeeper {
public:
    explicit WakeKeeper(WakeKeeperParts parts) : m_parts(std::move(parts)) {}

    // Blocks until something happened, and deals with it. To be called again and again.
    void turn();

private:
    void connect();
    void ask();
    void report(const std::string& line) { m_parts.log.log(LogLevel::info, line); }

    WakeKeeperParts m_parts;
    bool m_connected = false;
    std::string m_complaint;                 // the last about the bus: said once, not at every attempt
    std::chrono::milliseconds m_pause{0};    // before the bus is tried again
    std::chrono::milliseconds m_patience{0}; // before chronyd is asked again
    int m_tries = 0;                         // left after the last wake-up
};

} // namespace tickervantage
