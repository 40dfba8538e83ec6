// The records of a chrony tracking log, with rolling statistics, kept so that a log of years fits into memory and can
// be drawn without touching every record.
//
// Records are kept in columns, in pieces of RECORDS_PER_PIECE, so that memory grows evenly: about 47 bytes a record.
// Each of the eight numbers of a record takes four of them and comes back exactly (log_number.h). Texts are kept once,
// and the rolling statistics are kept for every 64th record and computed again from there when they are asked for;
// asked for in the order of the log, or backwards, each costs a few nanoseconds. An absent number is a quiet NaN here
// and an empty optional in a `tracking` record. chronyd notes the loss of its reference with the address 0.0.0.0, the
// stratum 0 and zeros that nobody measured: the series of such a record are absent. Records stand in the order of the
// log, which is not always the order of time: a clock that is stepped back makes later records carry earlier times. One
// thread, also for reading. Source: chrony.conf(5), directive log, option tracking.
#pragma once

#include "studies/tracking/rolling_statistics.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tickervantage {

struct TrackingLine;

// Seconds since 1970-01-01 00:00:00 UTC, leap seconds not counted, as chrony writes them.
using LogTime = std::int64_t;

// The nine plotted series of a record, in the order in which they are drawn. Values in seconds, the frequency in
// seconds per second.
enum class Series : unsigned char {
    offset,
    mean_offset,
    rms_offset,
    offset_sd,
    rem_cor,
    mean_rem_cor,
    rms_rem_cor,
    rootdispersion,
    frequency,
};
inline constexpr std::size_t series_count = 9;

// Whether it is one of the rolling statistics, which no log has.
[[nodiscard]] bool is_rolling(Series series);

// One record, as a value.
struct tracking {
    LogTime timestamp = 0;
    std::string address;                  // of the reference
    std::optional<int> stratum;           // 0: no reference
    std::optional<double> frequency;      // s/s (the log has ppm); positive: the clock runs fast
    std::optional<double> skew;           // ppm
    std::optional<double> offset;         // s; positive: the clock is ahead of its source
    std::string el;                       // leap status: N, + , -, ?
    std::optional<int> co;                // combined sources
    std::optional<double> offset_sd;      // s
    std::optional<double> rem_cor;        // s; positive: the clock is behind and is being sped up
    std::optional<double> root_delay;     // s
    std::optional<double> rootdispersion; // s
    std::optional<double> max_error;      // s; chronyd's own bound of the clock's error since the record before
    std::optional<double> rms_offset;     // these four: rolling statistics, s
    std::optional<double> mean_offset;
    std::optional<double> mean_rem_cor;
    std::optional<double> rms_rem_cor;
};

struct ValueRange {
    double low = 0;
    double high = 0;
};

class TrackingRecords {
public:
    static constexpr std::size_t RECORDS_PER_PIECE = 4096;

    enum class Added : unsigned char { record, no_data_line, too_old };

    TrackingRecords();
    ~TrackingRecords();
    TrackingRecords(const TrackingRecords&) = delete;
    TrackingRecords& operator=(const TrackingRecords&) = delete;

    // Parses one line and, if it is a data line, appends its record and its rolling statistics. With `oldest` a record
    // from before that time is left out. A line whose date does not exist is no data line.
    Added add_line(std::string_view text, std::optional<LogTime> oldest = std::nullopt);

    void clear(); // also starts the rolling statistics afresh

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] bool empty() const { return m_size == 0; }
    [[nodiscard]] LogTime time(std::size_t index) const;
    [[nodiscard]] bool has_reference(std::size_t index) const;          // false: it tells of the loss
    [[nodiscard]] double value(Series series, std::size_t index) const; // NaN: absent
    [[nodiscard]] tracking record(std::size_t index) const;

    // Appends all values of the records [first, end), series by series: much quicker than one by one. The rolling
    // statistics and what the log itself has can be read apart.
    using AllValues = std::array<std::vector<double>, series_count>;
    void read(std::size_t first, std::size_t end, AllValues& values) const {
        read_logged(first, end, values);
        read_rolling(first, end, values);
    }
    void read_logged(std::size_t first, std::size_t end, AllValues& values) const;
    void read_rolling(std::size_t first, std::size_t end, AllValues& values) const;

    // The lowest and highest present value of the series among the records [first, end); none when all are absent.
    [[nodiscard]] std::optional<ValueRange> range(Series series, std::size_t first, std::size_t end) const;

    // The number of the newest record that is older than `time`; none when no record is. Right also where the clock was
    // stepped back.
    [[nodiscard]] std::optional<std::size_t> newest_before(LogTime time) const;

    // Bytes held, all told.
    [[nodiscard]] std::size_t memory() const;

private:
    struct Extent;
    struct Block;
    struct Piece;
    struct BlockAverages;

    Piece& piece_for_next();
    std::uint32_t source_number(const TrackingLine& line);
    [[nodiscard]] double logged_value(Series series, std::size_t index) const;
    [[nodiscard]] const RollingStatistics::Averages& averages(std::size_t index) const;
    [[nodiscard]] Extent block_extent(Series series, std::size_t first, std::size_t end) const;

    std::vector<std::unique_ptr<Piece>> m_pieces;
    std::size_t m_size = 0;
    // The texts of a record (address, stratum, leap status, number of sources, blanks between them), each combination
    // once.
    std::unordered_map<std::string, std::uint32_t> m_source_numbers;
    struct Source {
        const std::string* text = nullptr; // a key of the map
        bool is_lost = false;              // stratum and number of sources are both 0
        bool is_reference = true;
    };
    std::vector<Source> m_sources;
    std::uint32_t m_last_source = 0;
    std::string m_source_text;                 // kept only for its memory
    RollingStatistics m_rolling;               // after the last record
    std::unique_ptr<BlockAverages> m_averages; // of the block that was asked for last
};

} // namespace tickervantage
