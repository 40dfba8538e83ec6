// Moments as the clocks of a time zone show them. Moments are seconds since 1970-01-01 00:00:00 UTC; days count from
// 1970-01-01 on that zone's calendar. Plain functions.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tickervantage {

// Seconds by which the zone's clocks are ahead of UTC at a moment.
using ZoneOffset = std::function<std::int64_t(std::int64_t)>;

// Of the machine's own time zone; 0 where that is not known.
[[nodiscard]] std::int64_t machine_zone_offset(std::int64_t moment);

// "14:05"
[[nodiscard]] std::string hours_minutes(std::int64_t moment, const ZoneOffset& zone);

[[nodiscard]] std::int64_t day_of(std::int64_t moment, const ZoneOffset& zone);

// The moment at which a day begins: its midnight, or where the clocks are put forward over midnight, the hour after.
[[nodiscard]] std::int64_t day_start(std::int64_t day, const ZoneOffset& zone);

// "2026-11-21"
[[nodiscard]] std::string date_of_day(std::int64_t day);

// "2026-11-21 14:05:33", in UTC.
[[nodiscard]] std::string utc_date_time(std::int64_t moment);

// "2026-11-21T14:05:33Z", as ISO 8601 has it.
[[nodiscard]] std::string utc_stamp(std::int64_t moment);

// "2026-11-21 14:05:33 CET", in the machine's own time zone.
[[nodiscard]] std::string local_date_time(std::int64_t moment);

} // namespace tickervantage
