#include "roothelper/support/one_line.h"

#include "base/text_lines.h"

#include <fmt/format.h>

#include <algorithm>

namespace tickervantage {

std::string one_line(std::string_view text) {
    constexpr std::size_t longest = 500;
    std::string line(text.substr(0, longest));
    std::ranges::replace_if(
        line, [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
    return std::string(trimmed(line));
}

std::string last_words(const ExecuteResult& result) {
    const auto lines = non_empty_lines(result.output);
    const auto spoken = std::find_if(lines.rbegin(), lines.rend(), [](auto line) { return !trimmed(line).empty(); });
    if (spoken != lines.rend())
        return one_line(*spoken);
    return result.outcome == ExecuteOutcome::exited ? fmt::format("status {}.", result.exit_status) : result.sentence;
}

} // namespace tickervantage
