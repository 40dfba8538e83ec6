#include "studies/tracking/log_number.h"

#include <charconv>
#include <cmath>

namespace tickervantage {
namespace {

constexpr int most_digits = 15; // so many always fit into a double

bool is_digit(char one) {
    return one >= '0' && one <= '9';
}

struct Reader {
    const char* at;
    const char* end;

    [[nodiscard]] bool at_end() const { return at == end; }
    bool skip(char one) {
        if (at_end() || *at != one)
            return false;
        ++at;
        return true;
    }
    // Returns how many digits there were; of too many the number holds only the first.
    int take_digits(std::int64_t& number) {
        constexpr std::int64_t has_most_digits = 100'000'000'000'000;
        const char* const start = at;
        for (; !at_end() && is_digit(*at); ++at)
            if (number < has_most_digits)
                number = number * 10 + (*at - '0');
        return static_cast<int>(at - start);
    }
};

// The plain forms that chrony writes: -1.234, 1.234e-05. False: some other form, or more digits than are quick to read.
bool read_plain(std::string_view text, LogNumber& number) {
    Reader reader{text.data(), text.data() + text.size()};
    const bool negative = reader.skip('-');
    std::int64_t digits = 0;
    const int before = reader.take_digits(digits);
    const int after = before <= most_digits && reader.skip('.') ? reader.take_digits(digits) : 0;
    if (before + after == 0 || before + after > most_digits)
        return false;
    int power = 0;
    if (reader.skip('e')) {
        const bool down = reader.skip('-');
        if (!down)
            reader.skip('+');
        std::int64_t exponent = 0;
        if (const int count = reader.take_digits(exponent); count == 0 || count > 3)
            return false;
        power = static_cast<int>(down ? -exponent : exponent);
    }
    power -= after;
    if (!reader.at_end() || std::abs(power) > LARGEST_POWER)
        return false;
    number = log_number(negative, digits, power);
    return true;
}

} // namespace

LogNumber read_log_number(std::string_view text) {
    LogNumber number;
    if (read_plain(text, number))
        return number;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec == std::errc() && result.ptr == end && std::isfinite(value))
        number.value = value;
    return number;
}

bool read_whole_number(std::string_view text, int& number) {
    const char* const end = text.data() + text.size();
    int read = 0;
    const auto result = std::from_chars(text.data(), end, read);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    number = read;
    return true;
}

} // namespace tickervantage
