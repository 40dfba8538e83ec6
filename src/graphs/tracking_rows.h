// Records as lines of text, for the clipboard and for other programs. UTF-8, lines end in a line feed.
#pragma once

#include "graphs/time_stretches.h"
#include "graphs/tracking_records.h"

#include <array>
#include <functional>
#include <span>
#include <string_view>

namespace tickervantage {

// csv: comma-separated, numbers that read back exactly, "2026-11-21T02:15:03Z", nothing between the commas where a
// value is absent. text: columns for people, "2026-11-21 02:15:03", "-" where a value is absent.
enum class RowFormat : unsigned char { csv, text };

// The name of a series in a heading: "rms_offset".
[[nodiscard]] std::string_view series_name(Series series);

// A heading and a row for each record, with the shown series, in the units of the records (seconds, and seconds per
// second). `write` gets pieces of about 64 KiB and says whether to go on. 0, or -1 when it did not want to.
[[nodiscard]] int write_rows(const TrackingRecords& records, std::span<const RecordSpan> which,
                             const std::array<bool, series_count>& shown, RowFormat format,
                             const std::function<bool(std::string_view)>& write);

} // namespace tickervantage
