// `tickerctl log`: the records of a log, or their summary. Results are exit statuses: 1 when no record is asked for.
#pragma once

#include "chrony/log/log_table.h"
#include "cli/logs/log_rows.h"
#include "studies/tracking/tracking_records.h"

#include <iosfwd>
#include <limits>
#include <optional>
#include <string>

namespace tickervantage {

// Which records are asked for.
struct LogChoice {
    std::optional<std::string> source = {};                 // address or reference ID; none: all
    double from = -std::numeric_limits<double>::infinity(); // s since 1970, UTC
    double to = std::numeric_limits<double>::infinity();    // not included

    [[nodiscard]] bool has_time(double time) const { return time >= from && time < to; }
};

// Keys of the tracking log as the fields are named, of other logs as their columns are.
[[nodiscard]] int print_log(const TrackingRecords& records, LogForm form, std::ostream& out,
                            const LogChoice& choice = {});
[[nodiscard]] int print_log(const LogTable& records, LogForm form, std::ostream& out, const LogChoice& choice = {});

// Number, first and last time, and of every series what summary_json() tells.
[[nodiscard]] int print_log_summary(const TrackingRecords& records, LogForm form, std::ostream& out,
                                    const LogChoice& choice = {});
[[nodiscard]] int print_log_summary(const LogTable& records, LogForm form, std::ostream& out,
                                    const LogChoice& choice = {});

} // namespace tickervantage
