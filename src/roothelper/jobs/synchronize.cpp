#include "roothelper/jobs/synchronize.h"

#include "roothelper/grammar/helper_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tickervantage {

bool is_server_name(std::string_view text) {
    while (true) {
        const auto end = std::min(text.find(' '), text.size());
        if (!is_host_name(text.substr(0, end)))
            return false;
        if (end == text.size())
            return true;
        text.remove_prefix(end + 1);
    }
}

std::optional<double> step_offset(double typed_seconds) {
    constexpr double longest = 4e9; // s
    if (!std::isfinite(typed_seconds) || std::abs(typed_seconds) > longest)
        return std::nullopt;
    const std::string sent = fmt::format("{:g}", typed_seconds);
    double offset = 0;
    (void)std::from_chars(sent.data(), sent.data() + sent.size(), offset); // our own text
    return offset;
}

StepLength length_of_step(double seconds) {
    constexpr double minute = 60;
    constexpr double hour = 60 * minute;
    constexpr double day = 24 * hour;
    double rest = std::abs(seconds);
    const auto take = [&rest](double unit) {
        const double count = std::floor(rest / unit);
        rest -= count * unit;
        return count;
    };
    StepLength length;
    length.days = static_cast<long long>(take(day));
    length.hours = static_cast<int>(take(hour));
    length.minutes = static_cast<int>(take(minute));
    length.seconds = rest;
    return length;
}

} // namespace tickervantage
