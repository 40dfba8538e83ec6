#include "roothelper/support/kernel_clock.h"

#include <sys/timex.h>

#include <cerrno>

namespace tickervantage {

int KernelClock::step(const ClockOffset& offset) {
    timex change{};
    change.modes = ADJ_SETOFFSET | ADJ_NANO;
    change.time.tv_sec = offset.seconds;
    change.time.tv_usec = offset.nanoseconds; // nanoseconds, by the second flag
    return ::adjtimex(&change) < 0 ? errno : 0;
}

} // namespace tickervantage
