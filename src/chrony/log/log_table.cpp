#include "chrony/log/log_table.h"

#include <cstring>

namespace tickervantage {
namespace {

// Where to look for a text first: its last bytes tell addresses apart.
std::size_t place_of(std::string_view text, std::size_t places) {
    std::uint64_t end = 0;
    const std::size_t count = std::min(text.size(), sizeof end);
    std::memcpy(&end, text.data() + text.size() - count, count);
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>((end * odd) >> 32U) % places;
}

} // namespace

bool LogTable::add_line(std::string_view line) {
    if (!read_log_line(m_shape, line, m_line))
        return false;
    add(m_line);
    return true;
}

void LogTable::add(const LogLine& line) {
    const std::size_t at = m_size % records_per_piece;
    if (at == 0) {
        if (!m_pieces.empty())
            m_pieces.back().other_numbers.shrink_to_fit();
        m_pieces.emplace_back();
        m_pieces.back().times.resize(records_per_piece);
        m_pieces.back().cells.resize(records_per_piece * m_shape.columns.size());
    }
    Piece& piece = m_pieces.back();
    piece.times[at] = line.microseconds;
    for (std::size_t column = 0; column < m_shape.columns.size(); ++column)
        piece.cells[column * records_per_piece + at] = cell_of(column, line);
    ++m_size;
}

PackedNumber LogTable::cell_of(std::size_t column, const LogLine& line) {
    switch (m_shape.columns[column].form) {
    case ColumnForm::letter:
        return static_cast<unsigned char>(line.texts[column].front());
    case ColumnForm::text:
        return static_cast<PackedNumber>(number_of(column, line.texts[column]));
    default:
        return packed(line.numbers[column], m_pieces.back().other_numbers);
    }
}

std::uint32_t LogTable::number_of(std::size_t column, std::string_view text) {
    std::uint32_t& last = m_last[column];
    if (last < m_texts.size() && *m_texts[last] == text)
        return last;
    std::uint32_t& recent = m_recent[place_of(text, recent_places)];
    if (recent < m_texts.size() && *m_texts[recent] == text)
        return last = recent;
    const auto [entry, is_new] =
        m_text_numbers.try_emplace(std::string(text), static_cast<std::uint32_t>(m_texts.size()));
    if (is_new)
        m_texts.push_back(&entry->first);
    return last = recent = entry->second;
}

std::int64_t LogTable::microseconds(std::size_t index) const {
    return m_pieces[index / records_per_piece].times[index % records_per_piece];
}

PackedNumber LogTable::cell(std::size_t column, std::size_t index) const {
    return m_pieces[index / records_per_piece].cells[column * records_per_piece + index % records_per_piece];
}

double LogTable::number(std::size_t column, std::size_t index) const {
    return unpacked(cell(column, index), m_pieces[index / records_per_piece].other_numbers);
}

std::uint32_t LogTable::text_number(std::size_t column, std::size_t index) const {
    return static_cast<std::uint32_t>(cell(column, index));
}

std::string_view LogTable::text(std::size_t column, std::size_t index) const {
    static constexpr auto letters = [] {
        std::array<char, 256> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = static_cast<char>(i);
        return all;
    }();
    const std::uint32_t number = text_number(column, index);
    return m_shape.columns[column].form == ColumnForm::letter ? std::string_view(&letters[number], 1)
                                                              : std::string_view(*m_texts[number]);
}

std::size_t LogTable::memory() const {
    std::size_t bytes = sizeof *this + m_pieces.capacity() * sizeof(Piece) + m_texts.capacity() * sizeof(void*);
    for (const Piece& piece : m_pieces)
        bytes += piece.times.capacity() * sizeof(std::int64_t) + piece.cells.capacity() * sizeof(PackedNumber) +
                 piece.other_numbers.capacity() * sizeof(double);
    constexpr std::size_t node = sizeof(std::pair<const std::string, std::uint32_t>) + 2 * sizeof(void*);
    for (const std::string* text : m_texts)
        bytes += node + (text->capacity() > std::string().capacity() ? text->capacity() + 1 : 0);
    return bytes;
}

} // namespace tickervantage
