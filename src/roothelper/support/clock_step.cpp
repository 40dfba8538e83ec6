#include "roothelper/support/clock_step.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <system_error>

namespace tickervantage {
namespace {

constexpr double largest_seconds = 4e9; // farther than any clock is off, and within what the kernel takes
constexpr std::int32_t second = 1'000'000'000;

ClockOffset to_offset(double seconds) {
    const double whole = std::floor(seconds);
    const auto rest = static_cast<std::int32_t>(std::lround((seconds - whole) * second));
    const auto carried = static_cast<std::int64_t>(whole) + rest / second; // rounding may make the second full
    return {carried, rest % second};
}

} // namespace

int step_clock(SteppedClock& clock, const std::string& text, std::string& sentence) {
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    // Written so that it also refuses what is no number.
    if (error != std::errc() || end != text.data() + text.size() || !(std::abs(seconds) <= largest_seconds)) {
        sentence = fmt::format("{} is no number of seconds to step the clock by.", text);
        return -1;
    }
    const int failed = seconds == 0 ? 0 : clock.step(to_offset(seconds));
    sentence = failed == 0 ? fmt::format("Stepped the clock by {:g} s.", seconds)
                           : fmt::format("Cannot step the clock: {}.", std::generic_category().message(failed));
    return failed == 0 ? 0 : -1;
}

} // namespace tickervantage
