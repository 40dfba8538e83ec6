// Records as lines of text, for the clipboard and for other programs. UTF-8, lines end in a line feed.
#pragma once

#include "studies/tracking/time_stretches.h"
#include "studies/tracking/tracking_records.h"

#include <array>
#include <functional>
#include <string_view>
#include <vector>

namespace tickervantage {

// csv: comma-separated, numbers that read back exactly, "2026-11-21T02:15:03Z", nothing between the commas where a
// value is absent. text: columns for people, "2026-11-21 02:15:03", "-" where a value is absent.
enum class RowFormat : unsigned char { csv, text };

// The name of a series in a heading: "rms_offset".
[[nodiscard]] std::string_view series_name(Series series);

// A table of records: the shown series, in the units of the records (seconds, and seconds per second). The rows are
// taken in as many turns as the caller likes, so that an interface stays awake over a million of them while the log
// goes on growing; what was taken no longer needs the log.
class TrackingRows {
public:
    TrackingRows(std::vector<RecordSpan> which, const std::array<bool, series_count>& shown);

    // Whether the log still holds what the taken rows came from; it may have grown.
    [[nodiscard]] bool are_still_in(const TrackingRecords& records) const;

    // Takes at most so many further rows. True: all are there.
    [[nodiscard]] bool take(const TrackingRecords& records, std::size_t most);

    // A heading, and a row for each record taken. `write` gets pieces of about 64 KiB and says whether to go on. 0, or
    // -1 when it did not want to. Any thread, once no more rows are taken.
    [[nodiscard]] int write(RowFormat format, const std::function<bool(std::string_view)>& write) const;

private:
    struct Slice {
        std::vector<LogTime> times;
        std::vector<double> values; // of the shown series, row by row
    };

    std::vector<RecordSpan> m_left; // still to be taken, the next one last
    std::vector<Series> m_shown;
    RecordSpan m_taken{};     // the first record taken and the one behind the last
    std::size_t m_needed = 0; // records that the log must have
    std::vector<Slice> m_slices;
};

} // namespace tickervantage
