// One line of any of chrony's logs, taken apart by its columns.
//
// Columns are found by the white space between them, since a long address moves the rest to the right; columns behind
// the last known one belong to later versions and are passed over. Pure functions, any thread.
#pragma once

#include "chrony/log/log_kinds.h"
#include "chrony/log/log_number.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tickervantage {

// By the shape's columns; the texts point into the line. Meant to be used again for line after line.
struct LogLine {
    std::int64_t microseconds = 0;                        // since 1970-01-01 00:00:00 UTC
    std::array<std::string_view, most_log_columns> texts; // of every column, as it stands; empty: it is not there
    std::array<LogNumber, most_log_columns> numbers = {}; // of columns that are numbers; NaN: absent

    [[nodiscard]] double time() const { return static_cast<double>(microseconds) / 1e6; }
    [[nodiscard]] double number(std::size_t column) const { return numbers[column].value; }
};

// False: no record of such a log. That is also a line whose date does not exist, with a word in the place of a number,
// or with a text longer than a log has.
[[nodiscard]] bool read_log_line(const LogShape& shape, std::string_view line, LogLine& read);

// The kind of log that a record belongs to: it has that many columns, of these forms. None where none fits.
[[nodiscard]] std::optional<LogKind> kind_of_record(std::string_view line);

} // namespace tickervantage
