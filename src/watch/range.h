// A range of values that are all right, as the Monitoring Plugins Development Guidelines write it: "10", "10:", "~:10",
// "10:20", "@10:20", with units of time behind the numbers. Pure functions, any thread.
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tickervantage {

struct AlertRange {
    double start = 0;
    double end = std::numeric_limits<double>::infinity();
    bool inside = false; // it is the values inside, both ends among them, that are not all right
};

// Of times a number may have ns, us, ms or s behind it, and is in seconds without; a unit belongs to its own number.
enum class RangeUnits : unsigned char { none, time };

// None for what is no range, and for one that ends before it begins.
[[nodiscard]] std::optional<AlertRange> parse_range(std::string_view text, RangeUnits units);

[[nodiscard]] bool alerts(const AlertRange& range, double value);

// As the guidelines want it behind a value: without units, and without a start of 0.
[[nodiscard]] std::string text_of(const AlertRange& range);

// Without an exponent, which not every reader of performance data takes, and with all the digits that there are.
[[nodiscard]] std::string plain_number(double value);

// "50ms", "2us", "1.5": as in a range; none for anything else.
[[nodiscard]] std::optional<double> parse_amount(std::string_view text, RangeUnits units);

} // namespace tickervantage
