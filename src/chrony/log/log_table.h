// The records of one of chrony's logs, kept in columns: small enough for a log of years, and quick to go through.
//
// A number takes four bytes and comes back exactly (log_number.h), a text four and is kept once, a time eight. Records
// stand in the order in which they were added, which is not always that of time: a clock that is stepped back makes
// later records carry earlier times. One thread at a time, also for reading.
#pragma once

#include "chrony/log/log_line.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tickervantage {

class LogTable {
public:
    explicit LogTable(LogKind kind) : m_shape(shape_of(kind)) {}

    // False: no record of this log; nothing was added.
    bool add_line(std::string_view line);
    void add(const LogLine& line); // of this log's shape

    [[nodiscard]] const LogShape& shape() const { return m_shape; }
    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }

    // Columns are those of log_kinds.h, such as statistics_column::offset.
    [[nodiscard]] std::int64_t microseconds(std::size_t index) const; // since 1970-01-01 00:00:00 UTC
    [[nodiscard]] double time(std::size_t index) const { return static_cast<double>(microseconds(index)) / 1e6; }
    [[nodiscard]] double number(std::size_t column, std::size_t index) const; // NaN: absent
    [[nodiscard]] std::string_view text(std::size_t column, std::size_t index) const;

    // Of a text; equal numbers are equal texts.
    [[nodiscard]] std::uint32_t text_number(std::size_t column, std::size_t index) const;

    [[nodiscard]] std::size_t memory() const; // bytes held

private:
    static constexpr std::size_t records_per_piece = 4096;
    struct Piece {
        std::vector<std::int64_t> times;
        std::vector<PackedNumber> cells; // column by column; of a text its number, of a letter the letter
        std::vector<double> other_numbers;
    };

    [[nodiscard]] PackedNumber cell(std::size_t column, std::size_t index) const;
    [[nodiscard]] PackedNumber cell_of(std::size_t column, const LogLine& line);
    [[nodiscard]] std::uint32_t number_of(std::size_t column, std::string_view text);

    const LogShape& m_shape;
    std::size_t m_size = 0;
    std::vector<Piece> m_pieces;
    std::unordered_map<std::string, std::uint32_t> m_text_numbers;
    std::vector<const std::string*> m_texts; // keys of the map
    // Most texts were seen a moment ago, if not in the record before: a glance here costs less than a look into the
    // map.
    std::array<std::uint32_t, most_log_columns> m_last{}; // by column
    static constexpr std::size_t recent_places = 64;
    std::array<std::uint32_t, recent_places> m_recent{};
    LogLine m_line; // kept only for its memory
};

} // namespace tickervantage
