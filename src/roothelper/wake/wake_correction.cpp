#include "roothelper/wake/wake_correction.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <fmt/format.h>

#include <utility>

namespace tickervantage {
namespace {

constexpr std::string_view good = "200 OK";

// With several commands chronyc prints an answer each; the first that is not good tells what went wrong.
Failure complaint(const ExecuteResult& result) {
    for (const auto line : non_empty_lines(result.output))
        if (const auto text = trimmed(line); !text.empty() && text != good)
            return said_by_others(std::string(text));
    if (result.outcome != ExecuteOutcome::exited)
        return result.failure.value_or(said_by_others({}));
    return {.code = FailureCode::chronyc_said_nothing, .arguments = {std::to_string(result.exit_status)}};
}

} // namespace

WakeCorrection::WakeCorrection(Execute& execute, std::string chronyc, WakeArguments arguments) : m_execute(execute) {
    m_request.program = std::move(chronyc);
    m_request.arguments = {"-n"};
    if (!arguments.socket.empty())
        m_request.arguments.insert(m_request.arguments.end(), {"-h", arguments.socket});
    auto burst = fmt::format("burst {}/{}", arguments.burst_good, arguments.burst_max);
    if (!arguments.burst_netmask.empty())
        burst += " " + arguments.burst_netmask;
    m_request.arguments.insert(
        m_request.arguments.end(),
        {"-m", fmt::format("makestep {} {}", arguments.make_thresh, arguments.make_limit), burst});
}

Result<> WakeCorrection::correct() const {
    const auto result = m_execute.run(m_request);
    if (result.outcome == ExecuteOutcome::exited && result.exit_status == 0)
        return {};
    return tl::unexpected(complaint(result));
}

} // namespace tickervantage
