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

} // namespace tickervantage
