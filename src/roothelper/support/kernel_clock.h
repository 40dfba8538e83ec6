// The machine's own clock. Needs CAP_SYS_TIME. Source: adjtimex(2).
#pragma once

#include "roothelper/support/clock_step.h"

namespace tickervantage {

class KernelClock : public SteppedClock {
public:
    // The kernel adds the offset in one go, so no time is lost between reading and setting.
    [[nodiscard]] int step(const ClockOffset& offset) override;
};

} // namespace tickervantage
