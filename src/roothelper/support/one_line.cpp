#include "roothelper/support/one_line.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <algorithm>

namespace tickervantage {

std::string one_line(std::string_view text) {
    constexpr std::size_t longest = 500;
    std::string line(text.substr(0, longest));
    std::ranges::replace_if(
        line, [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
    return std::string(trimmed(line));
}

Failure last_words(const ExecuteResult& result) {
    const auto lines = non_empty_lines(result.output);
    const auto spoken = std::find_if(lines.rbegin(), lines.rend(), [](auto line) { return !trimmed(line).empty(); });
    if (spoken != lines.rend())
        return said_by_others(one_line(*spoken));
    if (result.outcome == ExecuteOutcome::exited)
        return {.code = FailureCode::ended_with_status, .arguments = {std::to_string(result.exit_status)}};
    return result.failure.value_or(said_by_others({}));
}

bool succeeded(const ExecuteResult& result) {
    return result.outcome == ExecuteOutcome::exited && result.exit_status == 0;
}

} // namespace tickervantage
