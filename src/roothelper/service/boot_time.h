// The helper's clock: it also runs while the machine sleeps, and nobody can set it.
#pragma once

#include <cstdint>
#include <ctime>

namespace tickervantage {

[[nodiscard]] inline std::int64_t seconds_since_boot() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return now.tv_sec;
}

} // namespace tickervantage
