#include "roothelper/support/clock_step.h"

#include "base/failure_codes.h"

#include <sys/timex.h>

#include <fmt/format.h>

#include <cerrno>
#include <charconv>
#include <cmath>

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

Result<std::string> step_clock(SteppedClock& clock, const std::string& text) {
    double seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    // Written so that it also refuses what is no number.
    if (error != std::errc() || end != text.data() + text.size() || !(std::abs(seconds) <= largest_seconds))
        return failed(FailureCode::no_step, {text});
    if (const int why = seconds == 0 ? 0 : clock.step(to_offset(seconds)); why != 0)
        return failed(FailureCode::cannot_step_clock, {}, why);
    return fmt::format("Stepped the clock by {:g} s.", seconds);
}

int KernelClock::step(const ClockOffset& offset) {
    timex change{};
    change.modes = ADJ_SETOFFSET | ADJ_NANO;
    change.time.tv_sec = offset.seconds;
    change.time.tv_usec = offset.nanoseconds; // nanoseconds, by the second flag
    return ::adjtimex(&change) < 0 ? errno : 0;
}

} // namespace tickervantage
