#include "studies/laboratory/phase_data.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "base/text_lines.h"
#include "studies/laboratory/free_running_clock.h"

#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

std::vector<double> in_steps(std::span<const ClockRecord> stretch, double step) {
    std::vector<double> phase;
    const auto begin = static_cast<double>(stretch.front().time);
    std::size_t next = 1;
    for (std::size_t at = 0;; ++at) {
        const double time = begin + static_cast<double>(at) * step;
        while (next < stretch.size() && static_cast<double>(stretch[next].time) < time)
            ++next;
        if (next >= stretch.size())
            return phase;
        const ClockRecord& one = stretch[next - 1];
        const ClockRecord& other = stretch[next];
        const double share = (time - static_cast<double>(one.time)) / static_cast<double>(other.time - one.time);
        phase.push_back(one.phase + share * (other.phase - one.phase));
    }
}

} // namespace

PhaseData phase_of(const FreeRunningClock& clock) {
    PhaseData data{.tau0 = clock.interval, .segments = {}, .offset_sd = clock.offset_sd};
    for (const auto stretch : clock.stretches()) {
        auto phase = in_steps(stretch, clock.interval);
        if (phase.size() < 3)
            continue; // no difference of differences in it
        data.count += phase.size();
        data.segments.push_back(std::move(phase));
    }
    return data;
}

Result<PhaseData> phase_of_numbers(std::string_view text, NumberKind kind, double tau0, const std::string& name) {
    PhaseData data{.tau0 = tau0, .segments = {}, .offset_sd = {}};
    std::vector<double> phase;
    if (kind == NumberKind::frequency)
        phase.push_back(0);
    std::size_t line_number = 0;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        ++line_number;
        if (line.empty() || line.front() == '#')
            continue;
        const auto value = number_from_text<double>(line);
        if (!value)
            return failed(FailureCode::line_is_no_number, {name, std::to_string(line_number)});
        phase.push_back(kind == NumberKind::phase ? *value : phase.back() + *value * tau0);
        ++data.count;
    }
    if (phase.size() < 3)
        return failed(FailureCode::too_few_numbers, {name});
    data.segments.push_back(std::move(phase));
    return data;
}

} // namespace tickervantage
