#include "studies/tracking/series_layout.h"

#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>

namespace tickervantage {

namespace {

constexpr std::size_t RECORDS_PER_COLUMN = 2; // on average; a line through more becomes a smear
constexpr std::size_t LONGEST_CLUSTER = 8;
constexpr double DENSE_FROM = 0.75; // records in a column, on average
constexpr double DENSE_TO = 16;
constexpr std::size_t QUICK_BLOCK = 64;
static_assert(TrackingRecords::RECORDS_PER_PIECE % QUICK_BLOCK == 0);

class LayoutBuilder {
public:
    LayoutBuilder(const TrackingRecords& records, const TimeAxis& axis, Rect visible, double pixel)
        : m_records(records), m_axis(axis), m_visible(visible), m_pixel(pixel),
          m_columns(static_cast<std::size_t>(std::ceil(visible.width / pixel))) {}

    [[nodiscard]] RecordSpan in_sight(RecordSpan stretch) const {
        if (x(stretch.end - 1) < m_visible.x)
            return {stretch.end, stretch.end};
        const std::size_t first = first_at(m_records, m_axis, stretch, m_visible.x);
        return {first, first_at(m_records, m_axis, {first, stretch.end}, right_edge(m_visible))};
    }

    [[nodiscard]] Strand strand(RecordSpan stretch) const {
        const RecordSpan sight = in_sight(stretch);
        Strand result;
        if (sight.first > stretch.first)
            result.cells.push_back({-2, {sight.first - 1, sight.first}});
        add_columns(sight, result.cells);
        if (sight.end < stretch.end)
            result.cells.push_back({static_cast<std::int64_t>(m_columns) + 2, {sight.end, sight.end + 1}});
        const std::size_t count = sight.end - sight.first;
        result.crowded = count > RECORDS_PER_COLUMN * m_columns ? 1 : LONGEST_CLUSTER;
        const double per_column = static_cast<double>(count) / static_cast<double>(m_columns);
        result.dense = per_column > DENSE_FROM && per_column < DENSE_TO;
        if (result.dense)
            add_entries(result.cells);
        return result;
    }

    [[nodiscard]] bool crosses_sight(std::size_t later) const {
        const auto [left, right] = std::minmax({x(later - 1), x(later)});
        return left < right_edge(m_visible) && right >= m_visible.x;
    }

private:
    void add_columns(RecordSpan sight, std::vector<Cell>& cells) const {
        for (std::size_t i = sight.first; i < sight.end;) {
            const double here = std::floor((x(i) - m_visible.x) / m_pixel);
            const double column = cells.empty() ? here : std::max(here, static_cast<double>(cells.back().column + 1));
            const std::size_t next =
                rounded(i, end_of_column(i, sight.end, m_visible.x + (column + 1) * m_pixel), sight.end);
            cells.push_back({static_cast<std::int64_t>(column), {i, next}});
            i = next;
        }
    }

    void add_entries(std::vector<Cell>& cells) const {
        for (std::size_t i = 1; i < cells.size(); ++i) {
            const double from = x(cells[i].records.first - 1);
            const double way = x(cells[i].records.first) - from;
            const double boundary = m_visible.x + static_cast<double>(cells[i - 1].column + 1) * m_pixel;
            if (way > 0) { // else all at the start
                cells[i].entry = (boundary - from) / way;
                cells[i].entry_step = m_pixel / way;
            }
        }
    }

    // Whole blocks are read fastest; where a column holds many, it may take a few records of its neighbour's or give it
    // some: less than a quarter of a pixel.
    [[nodiscard]] static std::size_t rounded(std::size_t first, std::size_t end, std::size_t last) {
        if (end == last || end - first < 4 * QUICK_BLOCK)
            return end;
        const std::size_t nearest = (end + QUICK_BLOCK / 2) / QUICK_BLOCK * QUICK_BLOCK;
        return std::min(nearest, last);
    }

    // Looks in growing steps first: most columns hold few of the records.
    [[nodiscard]] std::size_t end_of_column(std::size_t first, std::size_t end, double boundary) const {
        std::size_t begin = first + 1;
        std::size_t step = 1;
        while (begin + step < end && x(begin + step) < boundary) {
            begin += step;
            step *= 2;
        }
        return first_at(m_records, m_axis, {begin, std::min(end, begin + step)}, boundary);
    }

    [[nodiscard]] double x(std::size_t record) const { return m_axis.x(m_records.time(record)); }

    const TrackingRecords& m_records;
    const TimeAxis& m_axis;
    Rect m_visible;
    double m_pixel;
    std::size_t m_columns;
};

} // namespace

SeriesLayout layout_series(const TrackingRecords& records, const TimeStretches& stretches, const TimeAxis& axis,
                           Rect visible, double pixel) {
    SeriesLayout layout;
    layout.left = visible.x;
    layout.column_width = pixel;
    const auto oldest = oldest_in_walk(records, axis);
    if (!oldest)
        return layout;
    const LayoutBuilder builder(records, axis, visible, pixel);
    for (const RecordSpan& stretch : stretches.from(*oldest, records.size())) {
        if (stretch.first > *oldest && builder.crosses_sight(stretch.first))
            layout.step_backs.push_back(stretch.first);
        if (Strand strand = builder.strand(stretch); !strand.cells.empty())
            layout.strands.push_back(std::move(strand));
    }
    return layout;
}

std::vector<RecordSpan> records_in_sight(const TrackingRecords& records, const TimeStretches& stretches,
                                         const TimeAxis& axis, Rect visible) {
    std::vector<RecordSpan> result;
    const auto oldest = oldest_in_walk(records, axis);
    if (!oldest)
        return result;
    const LayoutBuilder builder(records, axis, visible, 1);
    for (const RecordSpan& stretch : stretches.from(*oldest, records.size()))
        if (const RecordSpan sight = builder.in_sight(stretch); sight.first < sight.end)
            result.push_back(sight);
    return result;
}

} // namespace tickervantage
