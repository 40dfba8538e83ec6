#include "base/local_clock.h"

#include <fmt/format.h>

#include <array>
#include <chrono>
#include <ctime>
#include <string_view>

namespace tickervantage {
namespace {

constexpr std::int64_t DAY = 86400;
constexpr std::int64_t FARTHEST_ZONE = std::int64_t{26} * 3600; // from UTC, with room for a change of the date line

std::int64_t days_in(std::int64_t seconds) {
    return std::chrono::floor<std::chrono::days>(std::chrono::seconds(seconds)).count();
}

bool machine_time(std::int64_t moment, std::tm& parts) {
    const auto time = static_cast<std::time_t>(moment);
    return localtime_r(&time, &parts) != nullptr;
}

std::string utc_text(std::int64_t moment, std::string_view between, std::string_view end) {
    const std::int64_t day = days_in(moment);
    const std::int64_t second = moment - day * DAY;
    return fmt::format("{}{}{:02}:{:02}:{:02}{}", date_of_day(day), between, second / 3600, second / 60 % 60,
                       second % 60, end);
}

} // namespace

std::int64_t machine_zone_offset(std::int64_t moment) {
    std::tm parts{};
    return machine_time(moment, parts) ? parts.tm_gmtoff : 0;
}

std::string hours_minutes(std::int64_t moment, const ZoneOffset& zone) {
    const std::int64_t local = moment + zone(moment);
    const std::int64_t minutes = (local - days_in(local) * DAY) / 60;
    return fmt::format("{:02}:{:02}", minutes / 60, minutes % 60);
}

std::int64_t day_of(std::int64_t moment, const ZoneOffset& zone) {
    return days_in(moment + zone(moment));
}

std::int64_t day_start(std::int64_t day, const ZoneOffset& zone) {
    const std::int64_t midnight = day * DAY;
    std::int64_t before = midnight - FARTHEST_ZONE;
    std::int64_t after = midnight + FARTHEST_ZONE;
    while (after - before > 1) {
        const std::int64_t middle = before + (after - before) / 2;
        (day_of(middle, zone) < day ? before : after) = middle;
    }
    return after;
}

std::string date_of_day(std::int64_t day) {
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{day}}};
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()));
}

std::string utc_date_time(std::int64_t moment) {
    return utc_text(moment, " ", "");
}

std::string utc_stamp(std::int64_t moment) {
    return utc_text(moment, "T", "Z");
}

std::string local_date_time(std::int64_t moment) {
    std::tm parts{};
    std::array<char, 64> text{};
    if (!machine_time(moment, parts))
        return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S %Z", &parts)};
}

} // namespace tickervantage
