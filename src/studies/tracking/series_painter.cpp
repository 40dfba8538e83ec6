#include "studies/tracking/series_painter.h"

#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace tickervantage {

namespace {

constexpr double LINE_WIDTH = 1;
constexpr double OUTSIDE = 4;       // how far outside of what is in sight lines end, so that their ends are not seen
constexpr std::size_t PACKED = 256; // records in a column
constexpr std::size_t LONGEST_LINE = 4096; // points

// Has as much ink as a slanted line of the same height, cut off where it cannot be seen.
ColumnSpan inked(const ColumnSpan& span, double lowest, double highest) {
    const double rise = span.high - span.low;
    const double half = std::sqrt(LINE_WIDTH * LINE_WIDTH + rise * rise) / 2;
    const double middle = (span.low + span.high) / 2;
    return {span.column, std::max(middle - half, lowest), std::min(middle + half, highest)};
}

} // namespace

SeriesPainter::SeriesPainter(Canvas& canvas, const TrackingRecords& records, const TimeAxis& axis,
                             const ValueScale& scale, const SeriesLayout& layout, Rect sight,
                             TrackingRecords::AllValues& values)
    : m_canvas(canvas), m_records(records), m_axis(axis), m_scale(scale), m_layout(layout),
      m_sight(grown(sight, OUTSIDE)) {
    if (layout.strands.size() > MOST_STRANDS)
        return;
    for (const auto& strand : layout.strands)
        if (strand.dense)
            m_dense.emplace_back(records, strand, values);
}

void SeriesPainter::draw(Series series, const Ink& ink) {
    m_series = series;
    m_ink = ink;
    if (m_layout.strands.size() > MOST_STRANDS) {
        fill_columns_only();
    } else {
        auto dense = m_dense.begin();
        for (const auto& strand : m_layout.strands)
            if (strand.dense)
                draw_dense_strand(*dense++);
            else
                draw_strand(strand);
        for (const std::size_t later : m_layout.step_backs)
            draw_step_back(later);
    }
    if (!m_boxes.empty())
        m_canvas.fill_rects(m_boxes, m_ink);
    m_boxes.clear();
}

void SeriesPainter::draw_strand(const Strand& strand) {
    for (const auto& cell : strand.cells) {
        if (cell.records.end - cell.records.first > strand.crowded)
            add_column(cell);
        else
            for (std::size_t i = cell.records.first; i < cell.records.end; ++i)
                add_record(i);
    }
    lift();
}

void SeriesPainter::draw_dense_strand(const DenseStrand& strand) {
    strand.find_spans(m_series, m_scale, m_spans);
    const double zero_line = m_axis.origin.y;
    const double lowest = m_sight.y - zero_line;
    const double highest = upper_edge(m_sight) - zero_line;
    for (ColumnSpan& span : m_spans)
        span = inked(span, lowest, highest);
    std::erase_if(m_spans, [](const ColumnSpan& span) { return !(span.low < span.high); });
    m_canvas.fill_columns({m_layout.left, zero_line}, m_layout.column_width, m_spans, m_ink);
}

void SeriesPainter::draw_step_back(std::size_t later) {
    const auto from = point(later - 1);
    const auto to = point(later);
    if (from && to)
        add_segment(*from, *to);
    flush_line();
}

void SeriesPainter::fill_columns_only() {
    std::map<std::int64_t, ValueRange> columns;
    for (const auto& strand : m_layout.strands)
        for (const auto& cell : strand.cells)
            if (const auto range = m_records.range(m_series, cell.records.first, cell.records.end)) {
                auto& column = columns.try_emplace(cell.column, *range).first->second;
                column = {std::min(column.low, range->low), std::max(column.high, range->high)};
            }
    for (const auto& [number, range] : columns)
        add_box(left_of(number), m_layout.column_width, m_axis.origin.y + m_scale.offset(range.low),
                m_axis.origin.y + m_scale.offset(range.high));
}

void SeriesPainter::add_record(std::size_t record) {
    if (const auto at = point(record))
        line_to(*at);
    else
        lift();
}

void SeriesPainter::add_column(const Cell& cell) {
    const auto range = m_records.range(m_series, cell.records.first, cell.records.end);
    if (!range) {
        lift();
        return;
    }
    Column column{cell.column, m_axis.origin.y + m_scale.offset(range->low),
                  m_axis.origin.y + m_scale.offset(range->high), cell.records.end - cell.records.first >= PACKED};
    join(column, cell.records.first);
    finish_column();
    flush_line();
    m_column = column;
    m_pen_record = cell.records.end - 1;
    m_pen_is_alone = false;
}

void SeriesPainter::join(Column& column, std::size_t first_record) {
    const bool adjacent = m_column && m_column->number + 1 == column.number;
    if (adjacent && m_column->packed && column.packed) {
        let_touch(*m_column, column);
        return;
    }
    const auto first = point(first_record);
    if (!pen() || !first)
        lift();
    else if (adjacent)
        let_meet(*m_column, column, *pen(), *first);
    else
        line_to(*first);
}

const std::optional<Point>& SeriesPainter::pen() {
    if (m_pen_record)
        m_pen = point(*m_pen_record);
    m_pen_record.reset();
    return m_pen;
}

// What joins two columns of hundreds of records each is shorter than a pixel; it shows only where it bridges a step.
void SeriesPainter::let_touch(Column& left, Column& right) {
    if (left.high < right.low)
        left.high = right.low = std::midpoint(left.high, right.low);
    else if (right.high < left.low)
        right.high = left.low = std::midpoint(right.high, left.low);
}

// The line between two neighbouring columns is part of both, up to the boundary.
void SeriesPainter::let_meet(Column& left, Column& right, Point from, Point to) const {
    const double share = (left_of(right.number) - from.x) / (to.x - from.x);
    const double y = std::lerp(from.y, to.y, std::clamp(share, 0.0, 1.0));
    for (Column* column : {&left, &right}) {
        column->low = std::min(column->low, y);
        column->high = std::max(column->high, y);
    }
}

void SeriesPainter::line_to(Point point) {
    finish_column();
    m_pen_is_alone = !pen();
    if (pen())
        add_segment(*pen(), point);
    m_pen = point;
}

void SeriesPainter::add_segment(Point from, Point to) {
    const auto part = clipped({from, to}, m_sight);
    if (!part)
        return;
    if (m_line.empty() || m_line.back() != part->from || m_line.size() >= LONGEST_LINE) {
        flush_line();
        m_line.push_back(part->from);
    }
    m_line.push_back(part->to);
}

void SeriesPainter::lift() {
    finish_column();
    flush_line();
    if (m_pen_is_alone && m_pen)
        add_box(m_pen->x - LINE_WIDTH / 2, LINE_WIDTH, m_pen->y, m_pen->y);
    m_pen.reset();
    m_pen_record.reset();
    m_pen_is_alone = false;
}

void SeriesPainter::flush_line() {
    if (!m_line.empty())
        m_canvas.polyline(m_line, m_ink, LINE_WIDTH);
    m_line.clear();
}

void SeriesPainter::finish_column() {
    if (m_column)
        add_box(left_of(m_column->number), m_layout.column_width, m_column->low, m_column->high);
    m_column.reset();
}

void SeriesPainter::add_box(double x, double width, double low, double high) {
    const ColumnSpan span = inked({0, low, high}, m_sight.y, upper_edge(m_sight));
    if (span.low < span.high && x + width >= m_sight.x && x <= right_edge(m_sight))
        m_boxes.push_back({x, span.low, width, span.high - span.low});
}

std::optional<Point> SeriesPainter::point(std::size_t record) const {
    const double value = m_records.value(m_series, record);
    if (std::isnan(value))
        return std::nullopt;
    return Point{m_axis.x(m_records.time(record)), m_axis.origin.y + m_scale.offset(value)};
}

double SeriesPainter::left_of(std::int64_t column) const {
    return m_layout.left + static_cast<double>(column) * m_layout.column_width;
}

} // namespace tickervantage
