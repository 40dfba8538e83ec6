#include "studies/tracking/dense_strand.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

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

// Offsets grow with their values: only those of the lowest and the highest one are needed.
void widen(ColumnSpan& span, std::span<const double> values, const ValueScale& scale) {
    ColumnSpan extent = empty_span(span.column);
    for (const double value : values)
        widen(extent, value);
    if (extent.low > extent.high)
        return;
    widen(span, scale.offset(extent.low));
    widen(span, scale.offset(extent.high));
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
    : m_strand(strand), m_values(values), m_first(values.front().size()) {
    records.read(strand.cells.front().records.first, strand.cells.back().records.end, values);
}

void DenseStrand::find_spans(Series series, const ValueScale& scale, std::vector<ColumnSpan>& spans) const {
    const double* at = m_values[static_cast<std::size_t>(series)].data() + m_first;
    double last = std::numeric_limits<double>::quiet_NaN(); // of the cell before
    ColumnSpan span = empty_span(m_strand.cells.front().column);
    spans.resize(static_cast<std::size_t>(m_strand.cells.back().column - span.column) + m_strand.cells.size() + 1);
    SpanWriter writer(spans.data());
    for (const Cell& cell : m_strand.cells) {
        const auto values = std::span(at, cell.records.end - cell.records.first);
        const double first = scale.offset(values.front());
        if (std::isnan(last) || std::isnan(first)) {
            writer.add(span);
            span = empty_span(cell.column);
        } else {
            follow(span, cell, last, first, writer);
        }
        last = values.size() == 1 ? first : scale.offset(values.back());
        widen(span, first);
        widen(span, last);
        if (values.size() > 2)
            widen(span, values.subspan(1, values.size() - 2), scale);
        at += values.size();
    }
    writer.add(span);
    spans.resize(static_cast<std::size_t>(writer.end() - spans.data()));
}

} // namespace tickervantage
