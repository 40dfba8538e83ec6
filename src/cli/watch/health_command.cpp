#include "cli/watch/health_command.h"

#include "chrony/data/live_capture.h"
#include "chrony/reports/runchronyc.h"

#include <array>
#include <ostream>

namespace tickervantage {
namespace {

struct RangeArgument {
    const char* option;
    const std::optional<std::string>& text;
    AlertRange& range;
    RangeUnits units;
};

} // namespace

std::optional<HealthLimits> limits_of(const HealthArguments& arguments, std::string& complaint) {
    HealthLimits limits;
    limits.holdover_warning = arguments.holdover_warning.value_or(limits.holdover_warning);
    limits.holdover_critical = arguments.holdover_critical.value_or(limits.holdover_critical);
    using enum RangeUnits;
    const auto ranges = std::to_array<RangeArgument>(
        {{"-w", arguments.warning, limits.bound_warning, time},
         {"-c", arguments.critical, limits.bound_critical, time},
         {"--sources-warning", arguments.sources_warning, limits.sources_warning, none},
         {"--sources-critical", arguments.sources_critical, limits.sources_critical, none}});
    for (const RangeArgument& one : ranges) {
        if (!one.text)
            continue;
        const auto range = parse_range(*one.text, one.units);
        if (!range) {
            complaint = std::string(one.option) + " takes a range such as " +
                        (one.units == time ? "50ms or 1ms:50ms" : "2: or 2:8") + ", not " + *one.text + '.';
            return std::nullopt;
        }
        one.range = *range;
    }
    return limits;
}

HealthAnswer live_health(const Runchronyc& chronyc, const HealthLimits& limits) {
    const ExecuteResult run = run_open_reports(chronyc);
    if (run.outcome != ExecuteOutcome::exited)
        return unknown_health(run.failure ? english(*run.failure) : "chronyc did not answer.");
    return health(reports_in(capture_of_open_reports(run)), limits);
}

int print_health(const HealthAnswer& answer, std::ostream& out) {
    out << answer.line << '\n';
    out.flush();
    return static_cast<int>(answer.state);
}

} // namespace tickervantage
