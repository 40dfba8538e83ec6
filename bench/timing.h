// Clocks for measurements.
#pragma once

#include <chrono>

namespace tickervantage::bench {

using Clock = std::chrono::steady_clock;

[[nodiscard]] inline double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Processor time that the calling thread has used, in seconds: blind to what else the machine does.
[[nodiscard]] double thread_seconds();

} // namespace tickervantage::bench
