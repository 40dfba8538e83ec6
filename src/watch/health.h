// The answer that monitoring systems ask a plugin for: one line, performance data behind "|", and an exit status.
// Source: Monitoring Plugins Development Guidelines. Pure functions, any thread.
#pragma once

#include "chrony/data/reports.h"
#include "watch/range.h"

#include <string>

namespace tickervantage {

enum class HealthState : unsigned char { ok, warning, critical, unknown }; // the exit statuses 0 to 3

struct HealthLimits {
    AlertRange bound_warning{.end = 0.05}; // s
    AlertRange bound_critical{.end = 0.5};
    double holdover_warning = 3600; // s
    double holdover_critical = 86400;
    AlertRange sources_warning{.start = 2}; // usable ones
    AlertRange sources_critical{.start = 1};
};

struct HealthAnswer {
    HealthState state = HealthState::unknown;
    std::string line; // without a line feed; ASCII, whatever the sources call themselves
};

// A clock that nothing keeps right is critical, so is one that cannot be asked. In holdover the usable sources are not
// judged: that there are none is what holdover means.
[[nodiscard]] HealthAnswer health(const ChronyReports& reports, const HealthLimits& limits);

// Where nothing could be asked: wrong usage, no chronyc, a time that has run out. A sentence.
[[nodiscard]] HealthAnswer unknown_health(const std::string& why);

} // namespace tickervantage
