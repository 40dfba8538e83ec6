#include "cli/logs/plot_options.h"

#include <algorithm>
#include <charconv>

namespace tickervantage {
namespace {

bool is_digit(char one) {
    return one >= '0' && one <= '9';
}

// Digits and nothing else, of a value within the limits.
std::optional<int> whole_number(std::string_view text, int least, int most) {
    int number = 0;
    if (!std::ranges::all_of(text, is_digit))
        return std::nullopt;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

// Takes what lies before the separator off the text; all of it when there is none.
std::string_view take(std::string_view& text, char separator) {
    const auto end = std::min(text.find(separator), text.size());
    const auto part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

} // namespace

int parse_size(std::string_view text, PlotOptions& options) {
    const auto width = whole_number(take(text, 'x'), 1, largest_plot_side);
    const auto height = whole_number(text, 1, largest_plot_side);
    if (!width || !height)
        return -1;
    options.width = *width;
    options.height = *height;
    return 0;
}

std::optional<ClockTime> parse_clock_time(std::string_view text) {
    const auto colons = std::ranges::count(text, ':');
    if (colons < 1 || colons > 2 || text.ends_with(':'))
        return std::nullopt;
    const auto hour_text = take(text, ':');
    const auto minute_text = take(text, ':');
    const auto second_text = colons == 2 ? text : "00";
    const auto hour = whole_number(hour_text, 0, 23);
    const auto minute = whole_number(minute_text, 0, 59);
    const auto second = whole_number(second_text, 0, 59);
    if (!hour || !minute || !second || hour_text.size() > 2 || minute_text.size() != 2 || second_text.size() != 2)
        return std::nullopt;
    return ClockTime{*hour, *minute, *second};
}

} // namespace tickervantage
