#include "studies/freqtemp/freqtemp_view.h"

#include "draw/graph_geometry.h"
#include "studies/freqtemp/freqtemp_axes.h"
#include "studies/freqtemp/kept_plot.h"
#include "studies/freqtemp/plot_look.h"
#include "studies/freqtemp/plot_shapes.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

using namespace plot_look;

constexpr double MARKER_SIZE = 9.0;

// The curve, on a layer.
void emphasise_fit(Canvas& canvas, const FreqTempScale& scale, const QuadRegression& fit) {
    std::vector<Point> line;
    for (const freqPoint corner : curve_of(fit))
        line.push_back(scale.place(corner));
    for (const auto& part : clipped_line(line, scale.area)) {
        canvas.polyline(part, ColorRole::text_background, FIT_HALO);
        canvas.polyline(part, ColorRole::text, FIT_CURVE);
    }
}

void emphasise_newest(Canvas& canvas, Point center) {
    Path ring;
    ring.add_ellipse({center.x - NEWEST_SIZE / 2, center.y - NEWEST_SIZE / 2, NEWEST_SIZE, NEWEST_SIZE});
    canvas.stroke(ring, LineStyle{ColorRole::text_background, NEWEST_HALO});
    canvas.stroke(ring, LineStyle{ColorRole::text, NEWEST_RING});
}

// Everything of one sensor, in one colour: the one that the points need, which one sees through.
class EntryPainter {
public:
    EntryPainter(PlotShapes& shapes, const FreqTempScale& scale, const scatterEntry& entry, const Color& color)
        : m_shapes(shapes), m_scale(scale), m_entry(entry), m_color(color) {}

    void points() { m_shapes.squares(m_entry, DOT, m_color); }

    void fit(bool with_band) {
        const auto& fit = *m_entry.quadRegression;
        std::vector<Point> line;
        std::vector<Point> upper;
        std::vector<Point> lower;
        for (const auto& [x, y] : curve_of(fit)) {
            line.push_back(m_scale.place({x, y}));
            upper.push_back(m_scale.place({x, y + fit.y_stddev}));
            lower.push_back(m_scale.place({x, y - fit.y_stddev}));
        }
        if (with_band && all_finite(upper) && all_finite(lower))
            m_shapes.band(upper, lower, lighter(m_color));
        m_shapes.line(line, FIT_WIDTH, solid(m_color));
    }

    void means() {
        const auto& ranges = m_scale.ranges;
        const auto bins = degree_bins(ranges.min_temp, ranges.max_temp);
        const double first = m_entry.digest ? m_entry.digest->first_degree : ranges.min_temp;
        const auto means = m_entry.digest ? m_entry.digest->means : mean_frequencies(m_entry.points, first, bins);
        std::vector<Point> line;
        for (const freqPoint corner : mean_line(means, first))
            line.push_back(m_scale.place(corner));
        m_shapes.line(line, MEAN_WIDTH, solid(m_color));
    }

    void newest() { m_shapes.disc(m_scale.place(newest_of(m_entry)), FreqTempView::POINT_SIZE, m_color); }

private:
    static bool all_finite(const std::vector<Point>& points) {
        return std::ranges::all_of(points,
                                   [](Point point) { return std::isfinite(point.x) && std::isfinite(point.y); });
    }

    PlotShapes& m_shapes;
    const FreqTempScale& m_scale;
    const scatterEntry& m_entry;
    Color m_color;
};

Rect plot_of(Rect visible) {
    using V = FreqTempView;
    return {visible.x + V::MARGIN_LEFT, visible.y + V::MARGIN_BOTTOM,
            std::max(0.0, visible.width - (V::MARGIN_LEFT + V::MARGIN_RIGHT)),
            std::max(0.0, visible.height - V::MARGIN_BOTTOM)};
}

Rect drawing_area(Rect visible) {
    const Rect area = grown(plot_of(visible), -FreqTempView::INSET_PLOT);
    return {area.x, area.y, std::max(0.0, area.width), std::max(0.0, area.height)};
}

void draw_frame(Canvas& canvas, Rect plot) {
    Path frame;
    const double right = right_edge(plot);
    const double top = upper_edge(plot);
    frame.add_line({plot.x, plot.y}, {right, plot.y});
    frame.add_line({plot.x, top}, {right, top});
    frame.add_line({plot.x, plot.y}, {plot.x, top});
    frame.add_line({right, plot.y}, {right, top});
    canvas.stroke(frame, ColorRole::text, 1, Shadow::none);
}

void fill_plot(Canvas& canvas, Rect plot) {
    Path shape;
    shape.add_rounded_rect(plot, 0, 0);
    canvas.fill(shape, ColorRole::text_background, FillRule::nonzero);
}

std::optional<PointExtent> extent_of_selected(const ScatterMap& scatter) {
    std::optional<PointExtent> all;
    for (const auto& [name, entry] : scatter) {
        const auto extent = entry.selected ? entry.points.extent() : std::nullopt;
        if (extent && all)
            all->add(*extent);
        else if (extent)
            all = extent;
    }
    return all;
}

FreqTempRanges ranges_of(const PointExtent& extent) {
    FreqTempRanges ranges{std::floor(extent.min_temperature), std::ceil(extent.max_temperature),
                          std::floor(extent.min_frequency), std::ceil(extent.max_frequency)};
    if (ranges.min_temp > ranges.max_temp)
        std::swap(ranges.min_temp, ranges.max_temp);
    if (ranges.min_freq > ranges.max_freq)
        std::swap(ranges.min_freq, ranges.max_freq);
    return ranges;
}

} // namespace

void FreqTempView::set_scatter(const ScatterMap& scatter) {
    m_scatter = scatter;
    const auto extent = extent_of_selected(m_scatter);
    m_is_empty = !extent;
    const FreqTempRanges ranges = extent ? ranges_of(*extent) : FreqTempRanges();
    m_min_temp = ranges.min_temp;
    m_max_temp = ranges.max_temp;
    m_min_freq = ranges.min_freq;
    m_max_freq = ranges.max_freq;
}

PlotContent FreqTempView::content(Rect visible) const {
    return {.scatter = m_scatter,
            .scale = {{m_min_temp, m_max_temp, m_min_freq, m_max_freq}, drawing_area(visible)},
            .options = {.points = m_show_scatter_points,
                        .means = m_show_mean_frequency && m_max_temp != m_min_temp,
                        .band = m_show_freq_bounds,
                        .newest = m_show_last_record}};
}

void FreqTempView::draw(Canvas& canvas, Rect visible, KeptPlot* kept) const {
    const PlotContent all = content(visible);
    const FreqTempScale& scale = all.scale;
    const Rect plot = plot_of(visible);
    fill_plot(canvas, plot);
    draw_frame(canvas, plot);
    draw_freqtemp_axes(canvas, plot, scale);
    if (scale.area.width <= 0 || scale.area.height <= 0)
        return;
    KeptPlot own;
    if ((kept ? *kept : own).paint_whole(canvas, all))
        return;
    draw_entries(canvas, scale);
    draw_emphasis(canvas, scale);
}

bool FreqTempView::update(Canvas& canvas, Rect visible, KeptPlot& kept) const {
    return kept.paint_changes(canvas, content(visible));
}

// Over all points: in one of the sensors' colours among thousands of dots neither curve nor newest point is found.
void FreqTempView::draw_emphasis(Canvas& canvas, const FreqTempScale& scale) const {
    canvas.begin_layer(scale.area);
    for (const auto& [name, entry] : m_scatter)
        if (is_shown(entry) && has_drawn_fit(entry))
            emphasise_fit(canvas, scale, *entry.quadRegression);
    canvas.end_layer();
    if (!m_show_last_record)
        return;
    for (const auto& [name, entry] : m_scatter)
        if (is_shown(entry))
            emphasise_newest(canvas, scale.place(newest_of(entry)));
}

std::vector<std::pair<std::string, Color>> FreqTempView::shown() const {
    std::vector<std::pair<std::string, Color>> sensors;
    for (const auto& [name, entry] : m_scatter)
        if (is_shown(entry))
            sensors.emplace_back(name, entry.color.color());
    return sensors;
}

void FreqTempView::draw_entries(Canvas& canvas, const FreqTempScale& scale) const {
    PlotShapes shapes(canvas, scale);
    for (const auto& [name, entry] : m_scatter) {
        if (!is_shown(entry))
            continue;
        EntryPainter painter(shapes, scale, entry, canvas.readable(entry.color.color()));
        if (m_show_scatter_points)
            painter.points();
        canvas.begin_layer(scale.area);
        if (has_drawn_fit(entry))
            painter.fit(m_show_freq_bounds);
        if (m_show_mean_frequency && m_max_temp != m_min_temp)
            painter.means();
        if (m_show_last_record)
            painter.newest();
        canvas.end_layer();
    }
}

std::optional<FreqTempReading> FreqTempView::reading_at(Point position, Rect visible) const {
    const FreqTempScale scale{{m_min_temp, m_max_temp, m_min_freq, m_max_freq}, drawing_area(visible)};
    if (m_is_empty || !contains(scale.area, position))
        return std::nullopt;
    const freqPoint at = scale.value(position);
    FreqTempReading reading{.temperature = at.temperature, .frequency = at.frequency, .near = {}, .fits = {}};
    double nearest = NEAR * NEAR;
    for (const auto& [name, entry] : m_scatter) {
        if (!entry.selected)
            continue;
        for_each_dot(entry, [&, &sensor = name](freqPoint point, unsigned) {
            const Point place = scale.place(point);
            const double distance =
                (place.x - position.x) * (place.x - position.x) + (place.y - position.y) * (place.y - position.y);
            if (distance < nearest) {
                nearest = distance;
                reading.near = FreqTempReading::NearPoint{sensor, point};
            }
        });
        const auto& fit = *entry.quadRegression;
        if (has_drawn_fit(entry) && at.temperature >= fit.x_min && at.temperature <= fit.x_max)
            reading.fits.push_back({name, fit.evaluate(at.temperature), fit.y_stddev});
    }
    return reading;
}

void FreqTempView::draw_marker(Canvas& canvas, Rect visible, const FreqTempReading::NearPoint& point) const {
    const FreqTempScale scale{{m_min_temp, m_max_temp, m_min_freq, m_max_freq}, drawing_area(visible)};
    const Point center = scale.place(point.point);
    Path ring;
    ring.add_ellipse({center.x - MARKER_SIZE / 2, center.y - MARKER_SIZE / 2, MARKER_SIZE, MARKER_SIZE});
    canvas.stroke(ring, ColorRole::text, 1, Shadow::none);
}

} // namespace tickervantage
