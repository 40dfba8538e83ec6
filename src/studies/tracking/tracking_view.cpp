#include "studies/tracking/tracking_view.h"

#include "draw/graph_geometry.h"
#include "studies/tracking/series_painter.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace tickervantage {

namespace {

constexpr double SERIES_ALPHA = 0.9;

Series series_at(std::size_t index) {
    return static_cast<Series>(index);
}

} // namespace

TrackingView::TrackingView(GraphParts parts) : PerformanceGraph(std::move(parts)) {
    shown.fill(true);
}

std::optional<LogEnds> TrackingView::add_line(std::string_view line) {
    std::optional<LogTime> oldest;
    if (filtertimestamps && m_livetracking)
        oldest = to_integer(std::ceil(now() - display_data_range));
    if (m_chronytracking.add_line(line, oldest) == TrackingRecords::Added::record) {
        m_stretches.record_added(m_chronytracking);
        m_latest = std::max(m_latest, m_chronytracking.time(m_chronytracking.size() - 1));
    }
    if (m_chronytracking.empty())
        return std::nullopt;
    return LogEnds{m_chronytracking.time(0), m_chronytracking.time(m_chronytracking.size() - 1)};
}

void TrackingView::clear() {
    m_chronytracking.clear();
    m_stretches.clear();
    m_latest = std::numeric_limits<LogTime>::min();
}

std::optional<double> TrackingView::zoom_to_hold(double width, std::optional<double> seconds) const {
    constexpr double STEPS = 100; // of a whole zoom; rounded down, or the oldest record would be cut off
    const double span = seconds.value_or(dataTimespan());
    if (!(span > 0))
        return std::nullopt;
    const double points = std::max(1.0, width - xaxis_offset);
    return std::floor(std::log2(points / (span * xscale_default)) * STEPS) / STEPS;
}

TimeAxis TrackingView::time_axis(Point origin) const {
    return {.origin = origin, .origin_time = right_end(), .xscale = xscale};
}

void TrackingView::drawData(Canvas& canvas, Point origin, Rect visible) {
    if (std::ranges::none_of(shown, std::identity{}))
        return;
    const TimeAxis axis = time_axis(origin);
    const ValueScale scale = value_scale();
    const SeriesLayout layout = layout_series(m_chronytracking, m_stretches, axis, visible, canvas.pixel());
    SeriesPainter painter(canvas, m_chronytracking, axis, scale, layout, visible, m_values_in_sight);
    for (std::size_t i = 0; i < series_count; ++i) {
        Color color = colors[i];
        color.alpha = SERIES_ALPHA;
        if (shown[i])
            painter.draw(series_at(i), canvas.readable(color));
    }
    for (auto& of_series : m_values_in_sight)
        of_series.clear();
    cover_later_records(canvas, origin, visible);
}

// Records that came while the graph was paused, or from a clock that was ahead: the labels have their place.
void TrackingView::cover_later_records(Canvas& canvas, Point origin, Rect visible) const {
    const double width = right_edge(visible) - origin.x;
    if (static_cast<double>(m_latest) <= right_end() || width <= 0)
        return;
    const Rect margin{std::max(origin.x, visible.x), visible.y, std::min(width, visible.width), visible.height};
    canvas.fill_rects(std::span(&margin, 1), ColorRole::text_background);
}

double TrackingView::dataTimespan() const {
    return m_chronytracking.empty() ? 0 : right_end() - static_cast<double>(m_chronytracking.time(0));
}

OffsetRange TrackingView::dataRange() const {
    std::optional<ValueRange> all;
    for (std::size_t i = 0; i < series_count; ++i) {
        const auto one = shown[i] ? m_chronytracking.range(series_at(i), 0, m_chronytracking.size()) : std::nullopt;
        if (one)
            all = all ? ValueRange{std::min(all->low, one->low), std::max(all->high, one->high)} : *one;
    }
    if (!all)
        return PerformanceGraph::dataRange();
    const ValueScale scale = value_scale();
    return {scale.offset(all->low), scale.offset(all->high)};
}

// The highest and lowest of all, and a sample of the others: of many records each would tell the same.
std::optional<ValueFit> TrackingView::fit(Rect bounds, Rect visible) const {
    constexpr std::size_t SAMPLES_OF_A_SPAN = 500;
    std::vector<double> values;
    for (const RecordSpan& span : in_sight(bounds, visible))
        for (std::size_t i = 0; i < series_count; ++i) {
            const auto range = shown[i] ? m_chronytracking.range(series_at(i), span.first, span.end) : std::nullopt;
            if (!range)
                continue;
            values.insert(values.end(), {range->low, range->high});
            const std::size_t step = (span.end - span.first) / SAMPLES_OF_A_SPAN + 1;
            for (std::size_t record = span.first; record < span.end; record += step)
                values.push_back(m_chronytracking.value(series_at(i), record));
        }
    return fit_values(std::move(values), use_logscale, visible.height);
}

std::optional<Readout> TrackingView::readout(double x, Rect bounds) const {
    const TimeAxis axis = time_axis(time_origin(bounds));
    const auto oldest = oldest_in_walk(m_chronytracking, axis);
    if (!oldest)
        return std::nullopt;
    std::optional<Readout> nearest;
    const auto consider = [&](std::size_t record) {
        const LogTime time = m_chronytracking.time(record);
        if (axis.x(time) > axis.origin.x)
            return;
        if (!nearest || std::abs(axis.x(time) - x) <= std::abs(nearest->x - x))
            nearest = Readout{.record = record, .time = time, .x = axis.x(time)};
    };
    const double sought = std::min(x, axis.origin.x);
    for (const RecordSpan& stretch : m_stretches.from(*oldest, m_chronytracking.size())) {
        const std::size_t right = first_at(m_chronytracking, axis, stretch, sought);
        if (right > stretch.first)
            consider(right - 1);
        if (right < stretch.end)
            consider(right);
    }
    for (std::size_t i = 0; nearest && i < series_count; ++i)
        nearest->values[i] = m_chronytracking.value(series_at(i), nearest->record);
    return nearest;
}

std::vector<RecordSpan> TrackingView::in_sight(Rect bounds, Rect visible) const {
    const TimeAxis axis = time_axis(time_origin(bounds));
    constexpr double HAIR = 1e-6; // a box's right edge does not belong to it, the newest moment does
    visible.width = std::min(visible.width, axis.origin.x + HAIR - visible.x);
    return records_in_sight(m_chronytracking, m_stretches, axis, visible);
}

} // namespace tickervantage
