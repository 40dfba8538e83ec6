#include "studies/tracking/tracking_records.h"

#include "base/number_text.h"
#include "chrony/log/tracking_line.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t block_size = 64;
constexpr std::size_t blocks_per_piece = TrackingRecords::RECORDS_PER_PIECE / block_size;
constexpr double ppm = 1e6;

// The columns of numbers that are kept.
enum Column : unsigned char {
    column_frequency,
    column_skew,
    column_offset,
    column_offset_sd,
    column_rem_cor,
    column_root_delay,
    column_rootdispersion,
    column_max_error,
};
constexpr std::size_t column_count = 8;

Column column_of(Series series) {
    switch (series) {
    case Series::offset:
        return column_offset;
    case Series::offset_sd:
        return column_offset_sd;
    case Series::rem_cor:
        return column_rem_cor;
    case Series::rootdispersion:
        return column_rootdispersion;
    default:
        return column_frequency;
    }
}

double value_of(Series series, const RollingStatistics::Averages& averages) {
    switch (series) {
    case Series::mean_offset:
        return averages.mean_offset;
    case Series::rms_offset:
        return averages.rms_offset;
    case Series::mean_rem_cor:
        return averages.mean_rem_cor;
    default:
        return averages.rms_rem_cor;
    }
}

std::optional<double> present(double value) {
    return value == value ? std::optional(value) : std::nullopt;
}

bool is_zero(std::string_view text) {
    return number_from_text<int>(text) == 0;
}

bool is_reference(const TrackingLine& line) {
    return line.address != "0.0.0.0" || !is_zero(line.stratum);
}

void drop_series(TrackingLine& line) {
    line.frequency = line.offset = line.offset_sd = line.rem_cor = line.rootdispersion = {};
}

std::string_view next_word(std::string_view& text) {
    const auto length = std::min(text.find(' '), text.size());
    const auto word = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return word;
}

} // namespace

bool is_rolling(Series series) {
    return series == Series::mean_offset || series == Series::rms_offset || series == Series::mean_rem_cor ||
           series == Series::rms_rem_cor;
}

struct TrackingRecords::Extent {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void add(double value) { // an absent value compares false
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    void add(const Extent& other) {
        low = std::min(low, other.low);
        high = std::max(high, other.high);
    }
};

struct TrackingRecords::Block {
    std::array<Extent, series_count> extents;
    LogTime earliest = std::numeric_limits<LogTime>::max();
    RollingStatistics before;       // its first record
    std::uint64_t sources_lost = 0; // a bit for each record
};

struct TrackingRecords::Piece {
    std::array<LogTime, RECORDS_PER_PIECE> times;
    std::array<std::uint32_t, RECORDS_PER_PIECE> sources;
    std::array<std::array<PackedNumber, RECORDS_PER_PIECE>, column_count> numbers;
    std::vector<double> other_numbers; // that do not fit into four bytes
    std::array<Block, blocks_per_piece> blocks;
    std::array<Extent, series_count> extents; // these two: of the full blocks
    LogTime earliest = std::numeric_limits<LogTime>::max();

    void put(std::size_t at, const TrackingLine& line, std::uint32_t source) {
        times[at] = line.timestamp;
        sources[at] = source;
        const std::array<const LogNumber*, column_count> read{&line.frequency,      &line.skew,     &line.offset,
                                                              &line.offset_sd,      &line.rem_cor,  &line.root_delay,
                                                              &line.rootdispersion, &line.max_error};
        for (std::size_t column = 0; column < column_count; ++column)
            numbers[column][at] = packed(*read[column], other_numbers);
    }

    [[nodiscard]] double number(Column column, std::size_t at) const {
        return unpacked(numbers[column][at], other_numbers);
    }

    void widen(std::size_t at, const std::array<double, series_count>& values) {
        Block& block = blocks[at / block_size];
        for (std::size_t series = 0; series < series_count; ++series) {
            block.extents[series].add(values[series]);
        }
        block.earliest = std::min(block.earliest, times[at]);
        if (at % block_size == block_size - 1)
            widen(block);
    }

    // With a block that is full.
    void widen(const Block& block) {
        for (std::size_t series = 0; series < series_count; ++series)
            extents[series].add(block.extents[series]);
        earliest = std::min(earliest, block.earliest);
    }
};

struct TrackingRecords::BlockAverages {
    std::size_t block = 0;
    std::size_t count = 0;   // of the averages that are there
    RollingStatistics state; // after them
    std::array<RollingStatistics::Averages, block_size> averages;
};

TrackingRecords::TrackingRecords() : m_averages(std::make_unique<BlockAverages>()) {}

TrackingRecords::~TrackingRecords() = default;

void TrackingRecords::clear() {
    m_pieces.clear();
    m_size = 0;
    m_source_numbers.clear();
    m_sources.clear();
    m_last_source = 0;
    m_rolling = {};
    m_averages->count = 0;
}

TrackingRecords::Added TrackingRecords::add_line(std::string_view text, std::optional<LogTime> oldest) {
    TrackingLine line;
    if (!read_tracking_line(text, line))
        return Added::no_data_line;
    if (oldest && line.timestamp < *oldest)
        return Added::too_old;
    const std::size_t at = m_size % RECORDS_PER_PIECE;
    Piece& piece = piece_for_next();
    const std::uint32_t source = source_number(line);
    if (!m_sources[source].is_reference)
        drop_series(line);
    piece.put(at, line, source);
    Block& block = piece.blocks[at / block_size];
    if (at % block_size == 0)
        block.before = m_rolling;
    const bool lost = m_sources[source].is_lost;
    block.sources_lost |= std::uint64_t{lost} << (at % block_size);
    const auto averages = m_rolling.add(line.offset.value, line.rem_cor.value, lost);
    piece.widen(at,
                {line.offset.value, averages.mean_offset, averages.rms_offset, line.offset_sd.value, line.rem_cor.value,
                 averages.mean_rem_cor, averages.rms_rem_cor, line.rootdispersion.value, line.frequency.value / ppm});
    ++m_size;
    return Added::record;
}

TrackingRecords::Piece& TrackingRecords::piece_for_next() {
    if (m_size == m_pieces.size() * RECORDS_PER_PIECE) {
        if (!m_pieces.empty())
            m_pieces.back()->other_numbers.shrink_to_fit();
        m_pieces.push_back(std::make_unique_for_overwrite<Piece>()); // what is not written yet is not read
    }
    return *m_pieces.back();
}

std::uint32_t TrackingRecords::source_number(const TrackingLine& line) {
    m_source_text.assign(line.address);
    for (const auto part : {line.stratum, line.el, line.co})
        m_source_text.append(1, ' ').append(part);
    if (!m_sources.empty() && *m_sources[m_last_source].text == m_source_text)
        return m_last_source;
    const auto [entry, is_new] =
        m_source_numbers.try_emplace(m_source_text, static_cast<std::uint32_t>(m_sources.size()));
    if (is_new)
        m_sources.push_back({&entry->first, is_zero(line.stratum) && is_zero(line.co), is_reference(line)});
    m_last_source = entry->second;
    return m_last_source;
}

LogTime TrackingRecords::time(std::size_t index) const {
    return m_pieces[index / RECORDS_PER_PIECE]->times[index % RECORDS_PER_PIECE];
}

bool TrackingRecords::has_reference(std::size_t index) const {
    return m_sources[m_pieces[index / RECORDS_PER_PIECE]->sources[index % RECORDS_PER_PIECE]].is_reference;
}

double TrackingRecords::logged_value(Series series, std::size_t index) const {
    const Piece& piece = *m_pieces[index / RECORDS_PER_PIECE];
    const double value = piece.number(column_of(series), index % RECORDS_PER_PIECE);
    return series == Series::frequency ? value / ppm : value;
}

const RollingStatistics::Averages& TrackingRecords::averages(std::size_t index) const {
    BlockAverages& known = *m_averages;
    const std::size_t first = index - index % block_size;
    const Block& block = m_pieces[index / RECORDS_PER_PIECE]->blocks[index % RECORDS_PER_PIECE / block_size];
    if (known.count == 0 || known.block != first) {
        known.block = first;
        known.count = 0;
        known.state = block.before;
    }
    for (; first + known.count <= index; ++known.count) {
        const std::size_t at = first + known.count;
        known.averages[known.count] =
            known.state.add(logged_value(Series::offset, at), logged_value(Series::rem_cor, at),
                            (block.sources_lost >> known.count & 1U) != 0);
    }
    return known.averages[index - first];
}

void TrackingRecords::read_logged(std::size_t first, std::size_t end, AllValues& values) const {
    for (std::size_t at = 0; at < series_count; ++at) {
        const auto series = static_cast<Series>(at);
        if (is_rolling(series))
            continue;
        std::vector<double>& found = values[at];
        std::size_t next = found.size();
        found.resize(next + end - first);
        for (std::size_t index = first; index < end;) {
            const Piece& piece = *m_pieces[index / RECORDS_PER_PIECE];
            const std::size_t piece_end = std::min(end, index - index % RECORDS_PER_PIECE + RECORDS_PER_PIECE);
            for (std::size_t place = index % RECORDS_PER_PIECE; index < piece_end; ++index, ++place)
                found[next++] = piece.number(column_of(series), place) / (series == Series::frequency ? ppm : 1);
        }
    }
}

void TrackingRecords::read_rolling(std::size_t first, std::size_t end, AllValues& values) const {
    const auto of = [&values](Series series) -> std::vector<double>& {
        return values[static_cast<std::size_t>(series)];
    };
    for (const Series series : {Series::mean_offset, Series::rms_offset, Series::mean_rem_cor, Series::rms_rem_cor})
        of(series).reserve(of(series).size() + end - first);
    RollingStatistics rolling;
    for (std::size_t index = first - first % block_size; index < end; ++index) {
        const Piece& piece = *m_pieces[index / RECORDS_PER_PIECE];
        const std::size_t at = index % RECORDS_PER_PIECE;
        const Block& block = piece.blocks[at / block_size];
        if (at % block_size == 0)
            rolling = block.before;
        const auto averages = rolling.add(piece.number(column_offset, at), piece.number(column_rem_cor, at),
                                          (block.sources_lost >> at % block_size & 1U) != 0);
        if (index < first)
            continue;
        of(Series::mean_offset).push_back(averages.mean_offset);
        of(Series::rms_offset).push_back(averages.rms_offset);
        of(Series::mean_rem_cor).push_back(averages.mean_rem_cor);
        of(Series::rms_rem_cor).push_back(averages.rms_rem_cor);
    }
}

double TrackingRecords::value(Series series, std::size_t index) const {
    return is_rolling(series) ? value_of(series, averages(index)) : logged_value(series, index);
}

tracking TrackingRecords::record(std::size_t index) const {
    const Piece& piece = *m_pieces[index / RECORDS_PER_PIECE];
    const std::size_t at = index % RECORDS_PER_PIECE;
    std::string_view source = *m_sources[piece.sources[at]].text;
    tracking record;
    record.timestamp = piece.times[at];
    record.address = next_word(source);
    record.stratum = number_from_text<int>(next_word(source));
    record.el = next_word(source);
    record.co = number_from_text<int>(next_word(source));
    record.frequency = present(logged_value(Series::frequency, index));
    record.skew = present(piece.number(column_skew, at));
    record.offset = present(logged_value(Series::offset, index));
    record.offset_sd = present(logged_value(Series::offset_sd, index));
    record.rem_cor = present(logged_value(Series::rem_cor, index));
    record.root_delay = present(piece.number(column_root_delay, at));
    record.max_error = present(piece.number(column_max_error, at));
    record.rootdispersion = present(logged_value(Series::rootdispersion, index));
    const auto& rolling = averages(index);
    record.rms_offset = present(rolling.rms_offset);
    record.mean_offset = present(rolling.mean_offset);
    record.mean_rem_cor = present(rolling.mean_rem_cor);
    record.rms_rem_cor = present(rolling.rms_rem_cor);
    return record;
}

// Of records that lie in one block.
TrackingRecords::Extent TrackingRecords::block_extent(Series series, std::size_t first, std::size_t end) const {
    const Piece& piece = *m_pieces[first / RECORDS_PER_PIECE];
    const bool whole = first % block_size == 0 && (end - first == block_size || end == m_size);
    if (whole)
        return piece.blocks[first % RECORDS_PER_PIECE / block_size].extents[static_cast<std::size_t>(series)];
    Extent extent;
    for (std::size_t index = first; index < end; ++index)
        extent.add(value(series, index));
    return extent;
}

std::optional<ValueRange> TrackingRecords::range(Series series, std::size_t first, std::size_t end) const {
    end = std::min(end, m_size);
    Extent extent;
    while (first < end) {
        if (first % RECORDS_PER_PIECE == 0 && first + RECORDS_PER_PIECE <= end) {
            extent.add(m_pieces[first / RECORDS_PER_PIECE]->extents[static_cast<std::size_t>(series)]);
            first += RECORDS_PER_PIECE;
            continue;
        }
        const std::size_t block_end = std::min(first - first % block_size + block_size, end);
        extent.add(block_extent(series, first, block_end));
        first = block_end;
    }
    return extent.low <= extent.high ? std::optional(ValueRange{extent.low, extent.high}) : std::nullopt;
}

std::optional<std::size_t> TrackingRecords::newest_before(LogTime time) const {
    std::size_t end = m_size;
    while (end > 0) {
        const std::size_t last = end - 1;
        const Piece& piece = *m_pieces[last / RECORDS_PER_PIECE];
        const std::size_t at = last % RECORDS_PER_PIECE;
        if (at == RECORDS_PER_PIECE - 1 && piece.earliest >= time)
            end = last - at;
        else if (piece.blocks[at / block_size].earliest >= time)
            end = last - last % block_size;
        else if (piece.times[at] >= time)
            end = last;
        else
            return last;
    }
    return std::nullopt;
}

std::size_t TrackingRecords::memory() const {
    std::size_t bytes = sizeof *this + sizeof *m_averages + m_pieces.capacity() * sizeof m_pieces.front();
    for (const auto& piece : m_pieces)
        bytes += sizeof *piece + piece->other_numbers.capacity() * sizeof(double);
    // A node holds the text, its number, its hash and a link to the next.
    constexpr std::size_t node = sizeof(std::pair<const std::string, std::uint32_t>) + 2 * sizeof(void*);
    bytes += m_source_numbers.bucket_count() * sizeof(void*) + m_sources.capacity() * sizeof m_sources.front();
    for (const auto& source : m_sources)
        bytes += node + (source.text->capacity() > std::string().capacity() ? source.text->capacity() + 1 : 0);
    return bytes;
}

} // namespace tickervantage
