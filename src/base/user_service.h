// A service of the user's own, which runs also while no window is open.
#pragma once

#include "base/failure.h"

namespace tickervantage {

// Waits for other processes: on a queue.
class UserService {
public:
    virtual ~UserService() = default;

    // Whether it is on; or why it cannot be, on this machine.
    [[nodiscard]] virtual Result<bool> is_on() const = 0;

    // From now on and at each login, or no more.
    [[nodiscard]] virtual Result<> turn(bool on) const = 0;
};

} // namespace tickervantage
