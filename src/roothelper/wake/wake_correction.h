// One request to chronyd to correct the clock after the machine slept: it may step again, and measures at once.
//
// A machine that slept has an offset that chronyd does not know yet. So the permission to step comes first, and holds
// for the next updates; then a burst of measurements brings them about. Source: chronyc(1).
#pragma once

#include "base/execute.h"
#include "base/failure.h"
#include "roothelper/grammar/wake_arguments.h"

#include <string>

namespace tickervantage {

class WakeCorrection {
public:
    // `chronyc` is the program's path.
    WakeCorrection(Execute& execute, std::string chronyc, WakeArguments arguments);

    // Blocks for as long as chronyc takes. A failure is in chronyc's words where it has some: one line.
    [[nodiscard]] Result<> correct() const;

private:
    Execute& m_execute;
    ExecuteRequest m_request;
};

} // namespace tickervantage
