#include "privileged/synchronize.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tickervantage {

bool is_server_name(std::string_view text) {
    constexpr std::string_view forbidden = "\"'`$\\;&|<>()#%!";
    const auto fits = [](unsigned char c) {
        return c >= ' ' && c != 0x7F;
    };
    return text.find_first_not_of(' ') != std::string_view::npos &&
           text.find_first_of(forbidden) == std::string_view::npos && std::ranges::all_of(text, fits);
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
