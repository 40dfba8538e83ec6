// Starting the program when the user logs in.
#pragma once

#include "base/failure.h"

namespace tickervantage {

// Waits for the disk: on a queue.
class LaunchAtLogin {
public:
    virtual ~LaunchAtLogin() = default;

    // Both: 0, or -1 and why.
    [[nodiscard]] virtual int writePlist(Failure& failure) const = 0;
    [[nodiscard]] virtual int unlinkAgent(Failure& failure) const = 0;

    // Whether the agent is there, can be read, is switched on, and names a program.
    [[nodiscard]] virtual bool agentIsValid() const = 0;
};

} // namespace tickervantage
