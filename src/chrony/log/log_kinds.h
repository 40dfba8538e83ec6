// chrony's logs: which there are, and what their columns are. Source: chrony.conf(5), directive log, and what
// chronyd 4.3 writes.
//
// The options measurements and rawmeasurements write the same file, measurements.log. Plain data, any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tickervantage {

enum class LogKind : unsigned char { tracking, measurements, statistics, selection, refclocks, tempcomp, rtc };
inline constexpr std::array<LogKind, 7> log_kinds{LogKind::tracking,  LogKind::measurements, LogKind::statistics,
                                                  LogKind::selection, LogKind::refclocks,    LogKind::tempcomp,
                                                  LogKind::rtc};

// "-" is an absent number.
enum class ColumnForm : unsigned char {
    text,
    letter, // one character
    number,
    whole, // a number without a fraction
    octal, // the same, written in octal digits
};

struct LogColumn {
    std::string_view name; // for files and command lines, never translated
    ColumnForm form = ColumnForm::number;

    [[nodiscard]] bool is_number() const { return form != ColumnForm::text && form != ColumnForm::letter; }
};

// Columns are counted behind the date and the time.
struct LogShape {
    LogKind kind{};
    std::string_view name;    // "tracking"
    std::string_view heading; // words of its banner that no other log's has
    std::span<const LogColumn> columns;
    std::size_t fewest = 0;    // columns of a record; less than all where a column came later
    bool has_fraction = false; // its times have microseconds
    bool has_source = false;   // the first column names a source
};

inline constexpr std::size_t most_log_columns = 18;

[[nodiscard]] const LogShape& shape_of(LogKind kind);

// "measurements"; also "rawmeasurements", which is the same log.
[[nodiscard]] std::optional<LogKind> log_kind_named(std::string_view name);

// Of the banner's line with the columns' names; none for any other line.
[[nodiscard]] std::optional<LogKind> kind_of_heading(std::string_view line);

// A line of the banners that chronyd writes now and then, and of no record.
[[nodiscard]] bool is_banner(std::string_view line);

// Columns by name, in their order. Times in seconds, frequencies as noted.
namespace tracking_column {
enum : std::size_t {
    source,
    stratum,
    frequency, // ppm; positive: the clock runs fast
    skew,      // ppm
    offset,    // positive: the clock is ahead
    leap,      // N + - ?
    combined,
    offset_sd,
    remaining, // positive: the clock is behind
    root_delay,
    root_dispersion,
    max_error, // chronyd's own bound of the clock's error since the record before; not in old versions
};
} // namespace tracking_column

namespace measurements_column {
enum : std::size_t {
    source,
    leap,
    stratum,
    tests_1_3, // 1 passed, 0 failed
    tests_5_7,
    tests_a_d,
    local_poll,  // log2 s
    remote_poll, // log2 s
    score,
    offset, // positive: the clock is behind
    peer_delay,
    peer_dispersion,
    root_delay,
    root_dispersion,
    reference, // hexadecimal
    mode,      // 4B
    transmit,  // D daemon, K kernel, H hardware
    receive,
};
} // namespace measurements_column

namespace statistics_column {
enum : std::size_t {
    source,
    std_dev,
    offset, // positive: the clock is ahead
    offset_sd,
    frequency, // s/s; positive: the clock gains
    skew,      // s/s
    stress,
    samples,
    start,
    runs,
    asymmetry,
};
} // namespace statistics_column

namespace selection_column {
enum : std::size_t {
    source,
    state, // the letter of "chronyc selectdata"
    options,
    reach, // 0 to 255
    score,
    last_sample, // s ago
    low,
    high,
};
} // namespace selection_column

namespace refclocks_column {
enum : std::size_t {
    source,
    poll, // number of the driver's poll; absent in filtered samples, as pps and raw_offset are
    leap,
    pps,
    raw_offset,
    offset, // positive: the clock is behind
    dispersion,
};
} // namespace refclocks_column

namespace tempcomp_column {
enum : std::size_t {
    temperature,  // in the sensor's own unit
    compensation, // ppm
};
} // namespace tempcomp_column

namespace rtc_column {
enum : std::size_t {
    offset, // positive: the real-time clock is ahead of the system's
    valid,
    estimate,
    slope, // ppm
    samples,
    runs,
    interval,
};
} // namespace rtc_column

} // namespace tickervantage
