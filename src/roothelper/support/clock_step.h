// Stepping the system clock by an offset. Positive: the clock goes forward.
#pragma once

#include "base/failure.h"

#include <cstdint>
#include <string>

namespace tickervantage {

// seconds + nanoseconds / 1e9; the second part is never negative.
struct ClockOffset {
    std::int64_t seconds = 0;
    std::int32_t nanoseconds = 0;
};

class SteppedClock {
public:
    virtual ~SteppedClock() = default;

    // 0, or the number of the error.
    [[nodiscard]] virtual int step(const ClockOffset& offset) = 0;
};

// Steps the clock by the number of seconds in the text. One sentence.
[[nodiscard]] Result<std::string> step_clock(SteppedClock& clock, const std::string& text);

// The machine's own clock. Needs CAP_SYS_TIME. Source: adjtimex(2).
class KernelClock : public SteppedClock {
public:
    // The kernel adds the offset in one go, so no time is lost between reading and setting.
    [[nodiscard]] int step(const ClockOffset& offset) override;
};

} // namespace tickervantage
