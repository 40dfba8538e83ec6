#include "chrony/log/log_number.h"

#include "base/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace tickervantage {
namespace {

// The digits and the power of the shortest text that gives the number back, "-1.234e-05", where they are few enough.
void add_digits(LogNumber& number) {
    std::array<char, 32> text{};
    const char* const end =
        std::to_chars(text.data(), text.data() + text.size(), std::abs(number.value), std::chars_format::scientific)
            .ptr;
    std::int64_t digits = 0;
    int after_point = -1;
    const char* at = text.data();
    for (; *at != 'e'; ++at) {
        digits = *at == '.' ? digits : digits * 10 + (*at - '0');
        after_point += *at == '.' ? 0 : 1;
    }
    int power = 0;
    std::from_chars(at + (at[1] == '+' ? 2 : 1), end, power);
    power -= after_point;
    const bool is_minus_zero = digits == 0 && std::signbit(number.value);
    if (digits > LogNumber::largest_digits || std::abs(power) > largest_power || is_minus_zero)
        return;
    number.digits = static_cast<std::int32_t>(std::signbit(number.value) ? -digits : digits);
    number.power = power;
}

} // namespace

LogNumber read_log_number(std::string_view text) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    LogNumber number;
    if (!read_number(text, number.value))
        return {};
    add_digits(number);
    return number;
}

} // namespace tickervantage
