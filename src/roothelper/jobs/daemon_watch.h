// Whether the daemon stays up after it was started.
#pragma once

#include "base/execute.h"
#include "chrony/services/service_definitions.h"

#include <string>

namespace tickervantage {

class JobMachine;

inline constexpr int watch_seconds = 5;

struct DaemonWatch {
    Execute& execute;
    const JobMachine& machine; // which pauses
    ServiceForm form = native_service_form;

    // Looks once a second, for watch_seconds. The unit is empty for the daemon of our own: where the support tool has
    // watched that one already when it started it, one look is enough. Blocks.
    [[nodiscard]] bool daemon_survives(const std::string& unit) const;

private:
    [[nodiscard]] bool is_up(const std::string& unit) const;
};

} // namespace tickervantage
