#include "studies/tracking/dense_strand.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {

namespace {

constexpr double NOWHERE = std::numeric_limits<double>::infinity();

ColumnSpan empty_span(std::int64_t column) {
    return {column, NOWHERE, -NOWHERE};
}

void widen(ColumnSpan& span, double y) { // an absent value compares false
    span.low = y < span.low ? y : span.low;
    span.high = y > span.high ? y : span.high;
}

// Writes on, over memory that is there.
class SpanWriter {
public:
    explicit SpanWriter(ColumnSpan* next) : m_next(next) {}

    void add(const ColumnSpan& span) {
        if (span.low <= span.high)
            *m_next++ = span;
    }
    [[nodiscard]] const ColumnSpan* end() const { return m_next; }

private:
    ColumnSpan* m_next;
};

// Follows a line to the next cell, through the boundaries of the columns on its way.
void follow(ColumnSpan& span, const Cell& cell, double from, double to, SpanWriter& spans) {
    const double rise = to - from;
    double share = cell.entry;
    while (span.column < cell.column) {
        const double y = from + rise * std::clamp(share, 0.0, 1.0);
        widen(span, y);
        spans.add(span);
        span = {span.column + 1, y, y};
        share += cell.entry_step;
    }
}

} // namespace

DenseStrand::DenseStrand(const TrackingRecords& records, const Strand& strand, TrackingRecords::AllValues& values)
    : m_strand(strand), m_values(values), m_first(values.front().size()),
      m_count(strand.cells.back().records.end - strand.cells.front().records.first) {
    records.read(strand.cells.front().records.first, strand.cells.back().records.end, values);
}

void DenseStrand::find_spans(Series series, const ValueScale& scale, std::vector<ColumnSpan>& spans) {
    const auto offsets = std::span(m_values[static_cast<std::size_t>(series)]).subspan(m_first, m_count);
    scale.to_offsets(offsets);
    const double* at = offsets.data();
    double last = std::numeric_limits<double>::quiet_NaN(); // of the cell before
    ColumnSpan span = empty_span(m_strand.cells.front().column);
    spans.resize(static_cast<std::size_t>(m_strand.cells.back().column - span.column) + m_strand.cells.size() + 1);
    SpanWriter writer(spans.data());
    for (const Cell& cell : m_strand.cells) {
        if (std::isnan(last) || std::isnan(*at)) {
            writer.add(span);
            span = empty_span(cell.column);
        } else {
            follow(span, cell, last, *at, writer);
        }
        for (const double* const end = at + (cell.records.end - cell.records.first); at != end; ++at)
            widen(span, *at);
        last = at[-1];
    }
    writer.add(span);
    spans.resize(static_cast<std::size_t>(writer.end() - spans.data()));
}

} // namespace tickervantage
