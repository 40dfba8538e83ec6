#include "chrony/log/log_line.h"

#include "chrony/log/log_digits.h"
#include "chrony/log/tracking_line.h"

#include <algorithm>
#include <limits>

namespace tickervantage {
namespace {

constexpr std::int64_t microseconds_a_second = 1000000;

std::string_view take_word(const char*& at, const char* end) {
    while (at != end && is_white(*at))
        ++at;
    const char* const start = at;
    while (at != end && !is_white(*at))
        ++at;
    return {start, static_cast<std::size_t>(at - start)};
}

// ".123456"
bool read_fraction(std::string_view text, std::int64_t& microseconds) {
    if (text.size() != 7 || text.front() != '.')
        return false;
    microseconds = 0;
    for (const char one : text.substr(1)) {
        if (digit(one) > 9)
            return false;
        microseconds = microseconds * 10 + digit(one);
    }
    return true;
}

bool read_time(const LogShape& shape, std::string_view date, std::string_view time, std::int64_t& microseconds) {
    constexpr std::size_t whole = 8; // "14:33:27"
    std::int64_t fraction = 0;
    if (shape.has_fraction && !read_fraction(time.substr(std::min(whole, time.size())), fraction))
        return false;
    const auto second = log_time(date, shape.has_fraction ? time.substr(0, whole) : time);
    microseconds = second.value_or(0) * microseconds_a_second + fraction;
    return second.has_value();
}

// "e-07": takes it off the end of the text. 0 where there is none.
int take_power(std::string_view& text) {
    constexpr std::size_t length = 4;
    if (text.size() <= length)
        return 0;
    const std::size_t at = text.size() - length;
    if (text[at] != 'e' || (text[at + 1] != '-' && text[at + 1] != '+'))
        return 0;
    const unsigned tens = digit(text[at + 2]);
    const unsigned ones = digit(text[at + 3]);
    if (tens > 9 || ones > 9)
        return 0;
    const int power = static_cast<int>(tens * 10 + ones);
    const bool is_negative = text[at + 1] == '-';
    text = text.substr(0, at);
    return is_negative ? -power : power;
}

// Such as "-12.345", "377" and "4.900000e-07": what has not many digits.
bool read_plain(std::string_view text, LogNumber& number) {
    const bool negative = text.starts_with('-');
    text.remove_prefix(negative ? 1 : 0);
    const int power = take_power(text);
    constexpr std::size_t longest = 10;
    if (text.empty() || text.size() > longest)
        return false;
    std::int64_t digits = 0;
    int count = 0;
    int before_point = -1; // no point yet
    for (const char one : text) {
        if (one == '.' && before_point < 0) {
            before_point = count;
            continue;
        }
        if (digit(one) > 9)
            return false;
        digits = digits * 10 + digit(one);
        ++count;
    }
    const int scale = power - (before_point < 0 ? 0 : count - before_point);
    if (count == 0 || digits > std::numeric_limits<std::int32_t>::max() || std::abs(scale) > largest_power)
        return false;
    number = log_number(negative, static_cast<std::int32_t>(digits), scale);
    return true;
}

// What C prints for a number that is none.
bool is_absent(std::string_view text) {
    if (text == "-")
        return true;
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    return text == "nan" || text == "inf";
}

// "-1.234e-05", as most numbers are written: read where it stands, before its end is looked for. `at` comes behind it.
// Something stands before it: the date, at least.
bool take_scientific(const char*& at, const char* end, LogLine& read, std::size_t column) {
    constexpr std::ptrdiff_t width = 10; // the place of a sign among them
    while (at != end && is_white(*at))
        ++at;
    const char* const start = at == end || *at == '-' ? at : at - 1;
    if (end - start < width || (end - start > width && !is_white(start[width])) ||
        !read_scientific(start, read.numbers[column]))
        return false;
    read.texts[column] = {at, static_cast<std::size_t>(start + width - at)};
    at = start + width;
    return true;
}

bool read_number(std::string_view text, LogNumber& number) {
    if (read_plain(text, number))
        return true;
    number = read_log_number(text);
    return number.value == number.value || is_absent(text);
}

bool read_octal(std::string_view text, LogNumber& number) {
    std::int32_t value = 0;
    for (const char one : text) {
        if (digit(one) > 7 || text.size() > 7)
            return false;
        value = value * 8 + static_cast<std::int32_t>(digit(one));
    }
    number = log_number(false, value, 0);
    return true;
}

bool read_column(ColumnForm form, std::string_view text, LogNumber& number) {
    switch (form) {
    case ColumnForm::text:
        return text.size() <= largest_log_name;
    case ColumnForm::letter:
        return text.size() == 1;
    case ColumnForm::octal:
        return read_octal(text, number);
    case ColumnForm::number:
    case ColumnForm::whole:
        break;
    }
    return read_number(text, number);
}

// The columns behind date and time. `left`: what stands behind the last one.
bool read_columns(const LogShape& shape, const char* at, const char* end, LogLine& read, std::string_view& left) {
    for (std::size_t column = 0; column < shape.columns.size(); ++column) {
        if (shape.columns[column].form == ColumnForm::number && take_scientific(at, end, read, column))
            continue;
        const auto word = take_word(at, end);
        if (word.empty() && column < shape.fewest)
            return false;
        read.texts[column] = word;
        if (word.empty())
            read.numbers[column] = {};
        else if (!read_column(shape.columns[column].form, word, read.numbers[column]))
            return false;
    }
    left = take_word(at, end);
    return true;
}

bool read_line(const LogShape& shape, std::string_view line, LogLine& read, std::string_view& left) {
    const char* at = line.data();
    const char* const end = at + line.size();
    const auto date = take_word(at, end);
    if (date.empty() || digit(date.front()) > 9) // headings are told from data at once
        return false;
    return read_time(shape, date, take_word(at, end), read.microseconds) && read_columns(shape, at, end, read, left);
}

} // namespace

bool read_log_line(const LogShape& shape, std::string_view line, LogLine& read) {
    std::string_view left;
    return read_line(shape, line, read, left);
}

std::optional<LogKind> kind_of_record(std::string_view line) {
    LogLine read;
    std::string_view left;
    for (const LogKind kind : log_kinds)
        if (read_line(shape_of(kind), line, read, left) && left.empty())
            return kind;
    return std::nullopt;
}

} // namespace tickervantage
