#include "chrony/configuration/poll_limits.h"

#include "base/text_lines.h"
#include "chrony/configuration/included_files.h"
#include "chrony/configuration/server_list.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::int64_t smallest_poll = -7; // that chronyd knows
constexpr std::int64_t largest_poll = 24;

std::optional<int> option_in(const std::vector<std::string_view>& line, std::string_view name) {
    for (std::size_t at = 2; at + 1 < line.size(); ++at)
        if (is_word(line[at], name))
            if (const auto poll = poll_in(line[at + 1]); poll && *poll >= smallest_poll && *poll <= largest_poll)
                return static_cast<int>(*poll);
    return std::nullopt;
}

std::string text_of_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

PollLimits poll_limits_in(std::string_view configuration) {
    const PollLimits usual;
    PollLimits limits{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    for (const auto line : non_empty_lines(configuration)) {
        const auto parts = words(line);
        if (parts.size() < 2 ||
            !(is_word(parts[0], "server") || is_word(parts[0], "pool") || is_word(parts[0], "peer")))
            continue;
        const auto minpoll = option_in(parts, "minpoll");
        const auto maxpoll = option_in(parts, "maxpoll");
        limits.minpoll =
            std::min(limits.minpoll, minpoll.value_or(std::min(usual.minpoll, maxpoll.value_or(usual.minpoll))));
        limits.maxpoll =
            std::max(limits.maxpoll, maxpoll.value_or(std::max(usual.maxpoll, minpoll.value_or(usual.maxpoll))));
    }
    return limits.minpoll <= limits.maxpoll ? limits : usual;
}

PollLimits read_poll_limits(const std::string& path) {
    std::string all = text_of_file(path);
    for (const IncludedFile& file : included_files(std::string(all)))
        all += '\n' + text_of_file(file.path);
    return poll_limits_in(all);
}

} // namespace tickervantage
