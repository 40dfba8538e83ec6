// One line of a chrony tracking log, taken apart.
//
// A data line has at least 13 columns with white space between them. The 14th, the largest error, is not in the logs of
// old versions of chrony; further ones would belong to other versions and are passed over. Columns are found by the
// white space: an address of more than 15 characters moves the rest to the right. Pure functions, any thread. Source:
// chrony.conf(5), directive log, option tracking.
#pragma once

#include "chrony/log/log_number.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tickervantage {

// The texts point into the line. Numbers in the log's own units: ppm for frequency and skew, otherwise seconds;
// NaN where they are absent: neither a number nor one that a double holds.
struct TrackingLine {
    std::int64_t timestamp = 0; // seconds since 1970-01-01 00:00:00 UTC
    std::string_view address;
    std::string_view stratum;
    std::string_view el;
    std::string_view co;
    LogNumber frequency;
    LogNumber skew;
    LogNumber offset;
    LogNumber offset_sd;
    LogNumber rem_cor;
    LogNumber root_delay;
    LogNumber rootdispersion;
    LogNumber max_error;
};

inline constexpr std::size_t largest_log_name = 255; // bytes of a column that is text: as long as a host's name can be

// False: no data line. That is also a line whose date does not exist, and one with a text too long for a log.
[[nodiscard]] bool read_tracking_line(std::string_view line, TrackingLine& read);

// Whether chronyd followed a source then: it notes the loss of its reference with stratum 0 and the leap status "?".
[[nodiscard]] bool has_reference(const TrackingLine& line);

// "2026-11-21" and "02:15:03" (UTC) as seconds since 1970-01-01 00:00:00 UTC; none: no such date or time.
[[nodiscard]] std::optional<std::int64_t> log_time(std::string_view date, std::string_view time);

} // namespace tickervantage
