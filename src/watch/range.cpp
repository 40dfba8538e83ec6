#include "watch/range.h"

#include "base/number_text.h"

#include <array>
#include <charconv>
#include <utility>

namespace tickervantage {
namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

// The longer ones first: "ms" ends in "s" too.
constexpr std::array<std::pair<std::string_view, double>, 4> time_units{
    {{"ns", 1e9}, {"us", 1e6}, {"ms", 1e3}, {"s", 1}}};

std::optional<double> amount_or(std::string_view text, RangeUnits units, double if_empty) {
    return text.empty() ? std::optional(if_empty) : parse_amount(text, units);
}

} // namespace

std::optional<double> parse_amount(std::string_view text, RangeUnits units) {
    double in_a_second = 1;
    if (units == RangeUnits::time)
        for (const auto& [unit, count] : time_units)
            if (text.ends_with(unit)) {
                in_a_second = count;
                text.remove_suffix(unit.size());
                break;
            }
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    const auto number = number_from_text<double>(text);
    return number ? std::optional(*number / in_a_second) : std::nullopt; // "50ms" is the same number as "0.05"
}

std::optional<AlertRange> parse_range(std::string_view text, RangeUnits units) {
    AlertRange range;
    range.inside = text.starts_with('@');
    text.remove_prefix(range.inside ? 1 : 0);
    const std::size_t colon = text.find(':');
    const bool is_pair = colon != std::string_view::npos;
    const std::string_view first = is_pair ? text.substr(0, colon) : std::string_view();
    const std::string_view last = is_pair ? text.substr(colon + 1) : text;
    if (first.empty() && last.empty())
        return std::nullopt;
    const auto start = first == "~" ? -endless : amount_or(first, units, 0);
    const auto end = amount_or(last, units, endless);
    if (!start || !end || *end < *start)
        return std::nullopt;
    range.start = *start;
    range.end = *end;
    return range;
}

bool alerts(const AlertRange& range, double value) {
    const bool is_inside = value >= range.start && value <= range.end;
    return is_inside == range.inside;
}

std::string plain_number(double value) {
    std::array<char, 400> text{}; // the largest double has 309 digits, the smallest some 340
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value + 0.0, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

std::string text_of(const AlertRange& range) {
    std::string text = range.inside ? "@" : "";
    if (range.start == -endless)
        text += "~:";
    else if (range.start != 0 || range.end == endless)
        text += plain_number(range.start) + ':';
    return range.end == endless ? text : text + plain_number(range.end);
}

} // namespace tickervantage
