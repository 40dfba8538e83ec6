// What `tickerctl health` says: always one line and one of the four exit statuses, whatever goes wrong.
#pragma once

#include "base/execute.h"
#include "cli/watch/watch_arguments.h"
#include "watch/health.h"

#include <algorithm>
#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>

namespace tickervantage {

class Runchronyc;

// None, and why: an argument is no range.
[[nodiscard]] std::optional<HealthLimits> limits_of(const HealthArguments& arguments, std::string& complaint);

// One run of chronyc and nothing else: it is asked on many machines and often. Whether chronyd steers the clock, for
// which all processes would have to be looked through, is not asked. Blocks for as long as chronyc takes.
[[nodiscard]] HealthAnswer live_health(const Runchronyc& chronyc, const HealthLimits& limits);

// The exit status.
int print_health(const HealthAnswer& answer, std::ostream& out);

// Runs programs as another does, and ends them after that time at the latest.
class TimedExecute : public Execute {
public:
    TimedExecute(Execute& execute, double seconds) : m_execute(execute), m_limit(static_cast<int>(seconds * 1000)) {}
    [[nodiscard]] ExecuteResult run(const ExecuteRequest& request) override {
        ExecuteRequest limited = request;
        limited.time_limit = std::min(request.time_limit, m_limit);
        return m_execute.run(limited);
    }

private:
    Execute& m_execute;
    std::chrono::milliseconds m_limit;
};

} // namespace tickervantage
