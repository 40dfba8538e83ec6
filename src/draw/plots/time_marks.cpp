#include "draw/plots/time_marks.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace tickervantage {
namespace {

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3600;
constexpr std::int64_t day = 86400;
constexpr std::array<std::int64_t, 19> steps_of_a_day{
    1,           2,           5,    10,       15,       30,       minute,    2 * minute, 5 * minute, 10 * minute,
    15 * minute, 30 * minute, hour, 2 * hour, 3 * hour, 6 * hour, 12 * hour, day,        2 * day};
constexpr std::array<int, 11> steps_of_months{1, 3, 6, 12, 24, 60, 120, 240, 600, 1200, 6000};
constexpr double average_month = 30.44 * static_cast<double>(day);
constexpr double farthest = 2e11; // s: years of four figures

std::int64_t floored(double value) {
    return static_cast<std::int64_t>(std::floor(value));
}

std::int64_t local(std::int64_t moment, const ZoneOffset& zone) {
    return moment + zone(moment);
}

std::int64_t floor_to(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

std::chrono::year_month_day date_of(std::int64_t day_number) {
    return std::chrono::sys_days(std::chrono::days(day_number));
}

std::int64_t first_of_month(int months) { // since the year 0
    const std::chrono::year_month_day date{std::chrono::year(months / 12),
                                           std::chrono::month(static_cast<unsigned>(months % 12 + 1)),
                                           std::chrono::day(1)};
    return std::chrono::sys_days(date).time_since_epoch().count();
}

std::string month_day(std::int64_t day_number) {
    return date_of_day(day_number).substr(5);
}

class Marker {
public:
    Marker(const TimeRange& range, const ZoneOffset& zone)
        : m_range(range), m_zone(zone), m_first_day(day_of(floored(range.from), zone)),
          m_last_day(day_of(floored(range.to), zone)) {}

    [[nodiscard]] TimeMarks clock_times(std::int64_t step) const {
        TimeMarks marks;
        for (std::int64_t number = m_first_day; number <= m_last_day; ++number)
            add_times_of(number, step, marks.times);
        marks.beyond = of_days(1, [](std::int64_t number) { return date_of_day(number); });
        return marks;
    }

    // Each `step` days from a Monday on, so that the labels stay where they are when the range moves.
    [[nodiscard]] TimeMarks days(std::int64_t step) const {
        TimeMarks marks;
        constexpr std::int64_t a_monday = 4;
        for (auto number = floor_to(m_first_day - a_monday, step) + a_monday; number <= m_last_day; number += step)
            add(marks.times, number, month_day(number));
        marks.beyond = years();
        return marks;
    }

    [[nodiscard]] TimeMarks months(int step) const {
        TimeMarks marks;
        const auto date = date_of(m_first_day);
        const int first =
            static_cast<int>(date.year()) * 12 + static_cast<int>(static_cast<unsigned>(date.month())) - 1;
        for (int month = first / step * step; first_of_month(month) <= m_last_day; month += step)
            add(marks.times, first_of_month(month),
                step < 12 ? date_of_day(first_of_month(month)).substr(0, 7) : fmt::format("{}", month / 12));
        return marks;
    }

private:
    void add(std::vector<TimeMark>& marks, std::int64_t day_number, std::string label) const {
        const auto at = static_cast<double>(day_start(day_number, m_zone));
        if (at >= m_range.from && at <= m_range.to)
            marks.push_back({at, std::move(label)});
    }

    // Every step of the day's own clock; the moments are found from both of the day's offsets.
    void add_times_of(std::int64_t number, std::int64_t step, std::vector<TimeMark>& marks) const {
        const std::int64_t begin = day_start(number, m_zone);
        const std::int64_t end = day_start(number + 1, m_zone);
        const auto from = std::max(begin, floored(m_range.from));
        const auto to = std::min(end - 1, floored(m_range.to));
        const std::size_t first = marks.size();
        const std::array offsets{m_zone(from), m_zone(to)};
        for (std::size_t at = 0; at < (offsets[0] == offsets[1] ? 1 : 2); ++at)
            for (std::int64_t shown = floor_to(from + offsets[at] + step - 1, step); shown - offsets[at] <= to;
                 shown += step)
                if (const std::int64_t moment = shown - offsets[at]; moment >= from && local(moment, m_zone) == shown)
                    marks.push_back({static_cast<double>(moment), clock_text(shown, step)});
        std::sort(marks.begin() + static_cast<std::ptrdiff_t>(first), marks.end(),
                  [](const TimeMark& one, const TimeMark& other) { return one.time < other.time; });
        while (first < marks.size() && marks[first].time < m_range.from)
            marks.erase(marks.begin() + static_cast<std::ptrdiff_t>(first));
    }

    static std::string clock_text(std::int64_t shown, std::int64_t step) {
        const std::int64_t second = shown - floor_to(shown, day);
        const auto text = fmt::format("{:02}:{:02}", second / hour, second / minute % 60);
        return step >= minute ? text : text + fmt::format(":{:02}", second % 60);
    }

    // The first one stands at the left edge: it began before.
    template <class Text>
    [[nodiscard]] std::vector<TimeMark> of_days(std::int64_t step, Text text) const {
        std::vector<TimeMark> marks{{m_range.from, text(m_first_day)}};
        for (auto number = m_first_day + 1; number <= m_last_day; number += step)
            add(marks, number, text(number));
        return marks;
    }

    [[nodiscard]] std::vector<TimeMark> years() const {
        const int first = static_cast<int>(date_of(m_first_day).year());
        std::vector<TimeMark> marks{{m_range.from, std::to_string(first)}};
        for (int year = first + 1; first_of_month(12 * year) <= m_last_day; ++year)
            add(marks, first_of_month(12 * year), std::to_string(year));
        return marks;
    }

    TimeRange m_range;
    const ZoneOffset& m_zone;
    std::int64_t m_first_day;
    std::int64_t m_last_day;
};

} // namespace

TimeMarks time_marks(const TimeRange& range, double width, double room, const ZoneOffset& zone) {
    if (!(range.length() > 0) || !(width > 0) || std::abs(range.from) > farthest || std::abs(range.to) > farthest)
        return {};
    const double least = range.length() * room / width;
    const Marker marker(range, zone);
    for (const std::int64_t step : steps_of_a_day)
        if (static_cast<double>(step) >= least)
            return step < day ? marker.clock_times(step) : marker.days(step / day);
    for (const std::int64_t step : {7 * day, 14 * day})
        if (static_cast<double>(step) >= least)
            return marker.days(step / day);
    for (const int step : steps_of_months)
        if (step * average_month >= least)
            return marker.months(step);
    return {};
}

std::string zone_text(double time, const ZoneOffset& zone) {
    const std::int64_t offset = zone(floored(time));
    if (offset == 0)
        return "UTC";
    return fmt::format("UTC{}{:02}:{:02}", offset < 0 ? "−" : "+", std::abs(offset) / hour,
                       std::abs(offset) / minute % 60);
}

} // namespace tickervantage
