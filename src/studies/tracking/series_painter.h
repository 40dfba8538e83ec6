// Draws one series, thinned to what can be seen: every column of pixels shows the lowest and the highest value of its
// records, so that no spike is lost; where records are further apart than columns, a line joins them. An absent value
// breaks the line; a value between two absent ones is a dot.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/value_scale.h"
#include "studies/tracking/dense_strand.h"
#include "studies/tracking/series_layout.h"

#include <optional>
#include <vector>

namespace tickervantage {

class SeriesPainter {
public:
    // `sight`: what is visible; lines end a little outside. `values`: empty; for the painter's own use. All references
    // must outlive the painter.
    SeriesPainter(Canvas& canvas, const TrackingRecords& records, const TimeAxis& axis, const ValueScale& scale,
                  const SeriesLayout& layout, Rect sight, TrackingRecords::AllValues& values);

    void draw(Series series, const Ink& ink);

private:
    // The upright box that the line has come to; it may still grow towards its right neighbour.
    struct Column {
        std::int64_t number = 0;
        double low = 0;
        double high = 0;
        bool packed = false; // holds so many records that their ends need not be looked at
    };

    void draw_strand(const Strand& strand);
    void draw_dense_strand(const DenseStrand& strand);
    void draw_step_back(std::size_t later);
    void fill_columns_only();

    void add_record(std::size_t record);
    void add_column(const Cell& cell);
    void line_to(Point point);
    void add_segment(Point from, Point to);
    void add_box(double x, double width, double low, double high);
    void lift(); // ends the line here
    void flush_line();

    [[nodiscard]] std::optional<Point> point(std::size_t record) const; // none: absent
    [[nodiscard]] double left_of(std::int64_t column) const;

    [[nodiscard]] const std::optional<Point>& pen();
    void join(Column& column, std::size_t first_record);
    static void let_touch(Column& left, Column& right);
    void let_meet(Column& left, Column& right, Point from, Point to) const;
    void finish_column();

    Canvas& m_canvas;
    const TrackingRecords& m_records;
    const TimeAxis& m_axis;
    const ValueScale& m_scale;
    const SeriesLayout& m_layout;
    Rect m_sight;
    std::vector<DenseStrand> m_dense; // those of the layout, in its order

    Series m_series = Series::offset;
    Ink m_ink;
    std::optional<Point> m_pen;              // where the line has come to; read it with pen()
    std::optional<std::size_t> m_pen_record; // instead of m_pen: not looked up yet
    bool m_pen_is_alone = false;
    std::optional<Column> m_column;
    std::vector<Point> m_line;
    std::vector<Rect> m_boxes;
    std::vector<ColumnSpan> m_spans;
};

} // namespace tickervantage
