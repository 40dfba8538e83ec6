#include "chrony/log/tracking_line.h"

#include "chrony/log/log_digits.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

namespace tickervantage {
namespace {

constexpr std::size_t column_count = 14;
constexpr std::size_t fewest_columns = 13; // the last came later
using Columns = std::array<std::string_view, column_count>;

bool split(std::string_view line, Columns& columns) {
    const char* at = line.data();
    const char* const end = at + line.size();
    for (auto& column : columns) {
        while (at != end && is_white(*at))
            ++at;
        const char* const start = at;
        while (at != end && !is_white(*at))
            ++at;
        if (at == start)
            return &column >= &columns[fewest_columns];
        column = {start, static_cast<std::size_t>(at - start)};
    }
    return true;
}

// -1: something else than digits.
template <std::size_t Count>
int digits(std::string_view text, std::size_t from) {
    int number = 0;
    for (std::size_t i = from; i < from + Count; ++i) {
        const auto digit = static_cast<unsigned>(text[i]) - '0';
        if (digit > 9)
            return -1;
        number = number * 10 + static_cast<int>(digit);
    }
    return number;
}

std::optional<std::int64_t> seconds_of_day(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':')
        return std::nullopt;
    const int hours = digits<2>(text, 0);
    const int minutes = digits<2>(text, 3);
    const int seconds = digits<2>(text, 6);
    if (std::min({hours, minutes, seconds}) < 0 || hours > 23 || minutes > 59 || seconds > 59)
        return std::nullopt;
    return (hours * 60 + minutes) * 60 + seconds;
}

std::optional<std::int64_t> day_number(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const int year = digits<4>(text, 0);
    const int month = digits<2>(text, 5);
    const int day = digits<2>(text, 8);
    if (std::min({year, month, day}) < 0)
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        return std::nullopt;
    return std::chrono::sys_days(date).time_since_epoch().count();
}

// The layout in which chrony writes a line. Numbers stand at the same places in most lines, where they are read without
// looking for their ends first; a line that differs anywhere is read column by column.
// "%Y-%m-%d %H:%M:%S %-15s %2d %10.3f %10.3f %10.3e %1c %2d %10.3e %10.3e %10.3e %10.3e"
namespace layout {

constexpr std::size_t time = 11;
constexpr std::size_t address = 20;
constexpr std::size_t address_width = 15;
// From the end of the address's column.
constexpr std::size_t stratum = 1;
constexpr std::size_t frequency = 4;
constexpr std::size_t skew = 15;
constexpr std::size_t offset = 26;
constexpr std::size_t el = 37;
constexpr std::size_t co = 39;
constexpr std::size_t offset_sd = 42;
constexpr std::size_t rem_cor = 53;
constexpr std::size_t rootdelay = 64;
constexpr std::size_t rootdispersion = 75;
constexpr std::size_t end = 85;
constexpr std::size_t max_error = 86; // not in all versions
constexpr std::size_t whole_end = 96;
constexpr std::array<std::size_t, 10> blanks{0, 3, 14, 25, 36, 38, 41, 52, 63, 74};

} // namespace layout

// "%10.3f", such as "   -12.345"
bool read_fixed(const char* at, LogNumber& number) {
    unsigned digits = digit(at[7]) * 100 + digit(at[8]) * 10 + digit(at[9]);
    bool fits = at[6] == '.' && digit(at[5]) <= 9 && digit(at[7]) <= 9 && digit(at[8]) <= 9 && digit(at[9]) <= 9;
    int place = 5;
    for (unsigned weight = 1000; place >= 0 && digit(at[place]) <= 9; --place, weight *= 10)
        digits += digit(at[place]) * weight;
    const bool negative = place >= 0 && at[place] == '-';
    for (place -= negative ? 1 : 0; place >= 0; --place)
        fits &= at[place] == ' ';
    if (fits)
        number = log_number(negative, static_cast<std::int32_t>(digits), -3);
    return fits;
}

// "%2d"
bool read_two(const char* at, std::string_view& text) {
    text = at[0] == ' ' ? std::string_view(at + 1, 1) : std::string_view(at, 2);
    return digit(at[1]) <= 9 && (at[0] == ' ' || digit(at[0]) <= 9);
}

// The rest of a line, from the end of the address's column on.
bool read_max_error(std::string_view rest, LogNumber& number) {
    number = {};
    if (rest.size() == layout::end)
        return true;
    const bool is_there = rest.size() >= layout::whole_end && rest[layout::end] == ' ' &&
                          (rest.size() == layout::whole_end || is_white(rest[layout::whole_end]));
    return is_there && read_scientific(rest.data() + layout::max_error, number);
}

bool read_layout(std::string_view line, TrackingLine& read) {
    if (line.size() < layout::address + layout::address_width + layout::end)
        return false;
    const auto timestamp = log_time(line.substr(0, 10), line.substr(layout::time, 8));
    if (!timestamp || line[10] != ' ' || line[19] != ' ')
        return false;
    std::size_t address_end = layout::address;
    while (address_end < line.size() && !is_white(line[address_end]))
        ++address_end;
    const std::size_t start = std::max(address_end, layout::address + layout::address_width);
    if (address_end == layout::address || address_end - layout::address > largest_log_name ||
        line.size() < start + layout::end)
        return false;
    const char* const at = line.data() + start;
    bool fits = line.size() == start + layout::end || is_white(at[layout::end]);
    for (std::size_t i = address_end; i < start; ++i)
        fits &= line[i] == ' ';
    for (const std::size_t blank : layout::blanks)
        fits &= at[blank] == ' ';
    if (!fits || is_white(at[layout::el]))
        return false;
    read.timestamp = *timestamp;
    read.address = line.substr(layout::address, address_end - layout::address);
    read.el = line.substr(start + layout::el, 1);
    return read_two(at + layout::stratum, read.stratum) && read_fixed(at + layout::frequency, read.frequency) &&
           read_fixed(at + layout::skew, read.skew) && read_scientific(at + layout::offset, read.offset) &&
           read_two(at + layout::co, read.co) && read_scientific(at + layout::offset_sd, read.offset_sd) &&
           read_scientific(at + layout::rem_cor, read.rem_cor) &&
           read_scientific(at + layout::rootdelay, read.root_delay) &&
           read_scientific(at + layout::rootdispersion, read.rootdispersion) &&
           read_max_error(line.substr(start), read.max_error);
}

bool read_columns(std::string_view line, TrackingLine& read) {
    Columns columns;
    const auto* const first = std::ranges::find_if_not(line, is_white);
    if (first == line.end() || digit(*first) > 9 || !split(line, columns)) // headings are told from data at once
        return false;
    const auto timestamp = log_time(columns[0], columns[1]);
    const bool names_fit =
        std::ranges::all_of(std::array{columns[2], columns[3], columns[7], columns[8]},
                            [](std::string_view column) { return column.size() <= largest_log_name; });
    if (!timestamp || !names_fit)
        return false;
    read = {
        .timestamp = *timestamp,
        .address = columns[2],
        .stratum = columns[3],
        .el = columns[7],
        .co = columns[8],
        .frequency = read_log_number(columns[4]),
        .skew = read_log_number(columns[5]),
        .offset = read_log_number(columns[6]),
        .offset_sd = read_log_number(columns[9]),
        .rem_cor = read_log_number(columns[10]),
        .root_delay = read_log_number(columns[11]),
        .rootdispersion = read_log_number(columns[12]),
        .max_error = read_log_number(columns[13]),
    };
    return true;
}

} // namespace

std::optional<std::int64_t> log_time(std::string_view date, std::string_view time) {
    const auto day = day_number(date);
    const auto second = seconds_of_day(time);
    if (!day || !second)
        return std::nullopt;
    return *day * 86400 + *second;
}

bool read_tracking_line(std::string_view line, TrackingLine& read) {
    return read_layout(line, read) || read_columns(line, read);
}

bool has_reference(const TrackingLine& line) {
    return line.stratum != "0" && line.el != "?";
}

} // namespace tickervantage
