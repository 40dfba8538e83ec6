// Clocks that nobody sets. Source: clock_gettime(2).
#pragma once

#include <ctime>

namespace tickervantage {

struct BootTime {
    double now = 0;    // s since the machine was started, sleep included
    double asleep = 0; // s of them that it slept
};

[[nodiscard]] inline BootTime boot_time() {
    const auto seconds_of = [](clockid_t clock) {
        timespec time{};
        (void)::clock_gettime(clock, &time); // cannot fail for these
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double now = seconds_of(CLOCK_BOOTTIME);
    return {now, now - seconds_of(CLOCK_MONOTONIC)};
}

} // namespace tickervantage
