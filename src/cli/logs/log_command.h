// `tickerctl log`: the records of a tracking log, or their summary. Results are exit statuses: 1 when the log holds no
// record.
#pragma once

#include "studies/tracking/tracking_records.h"

#include <iosfwd>

namespace tickervantage {

enum class LogForm : unsigned char { text, json, csv };

// JSON: one line a record, keys as the fields are named, absent values null. CSV: a heading, absent values empty.
[[nodiscard]] int print_log(const TrackingRecords& records, LogForm form, std::ostream& out);

// Number, first and last time, and of every series the lowest, highest, mean, root mean square, median, and 95th and
// 99th percentile (between two values: on the straight line between them).
[[nodiscard]] int print_log_summary(const TrackingRecords& records, LogForm form, std::ostream& out);

} // namespace tickervantage
