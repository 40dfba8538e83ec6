#include "freqtemp/freqtemp_view.h"

#include "freqtemp/clipping.h"
#include "freqtemp/dot_painter.h"
#include "freqtemp/freqtemp_axes.h"
#include "graphs/graph_geometry.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

constexpr int FIT_STEPS = 100;
constexpr std::size_t FEWEST_FOR_FIT = 3;
constexpr double LIGHTER = 0.2; // of the band: 20 hundredths added to each part of the colour
constexpr double OUTLINE = 1.0; // half of it lies outside a point's square
constexpr double FIT_WIDTH = 2.0;
constexpr int DISC_CORNERS = 24;
constexpr double MARKER_SIZE = 9.0;

Ink ink_of(const scatterEntry& entry) {
    return entry.color.color();
}

Ink solid(const scatterEntry& entry) {
    return Color{entry.color.r, entry.color.g, entry.color.b, 1};
}

Ink lighter(const scatterEntry& entry) {
    const auto part = [](double value) {
        return std::min(1.0, value + LIGHTER);
    };
    return Color{part(entry.color.r), part(entry.color.g), part(entry.color.b), entry.color.a};
}

bool has_drawn_fit(const scatterEntry& entry) {
    return entry.points.size() >= FEWEST_FOR_FIT && entry.quadRegression->valid;
}

// Calls use(point, how many of them) for everything that is drawn as a point.
template <class Use>
void for_each_dot(const scatterEntry& entry, const Use& use) {
    if (entry.digest) {
        for (const auto& dot : entry.digest->dots)
            use(dot.point, unsigned{dot.count});
        return;
    }
    for (const auto& part : entry.points.spans())
        for (std::size_t i = 0; i < part.x.size(); ++i)
            use(freqPoint{part.x[i], part.y[i]}, 1U);
}

std::size_t dot_count(const scatterEntry& entry) {
    return entry.digest ? entry.digest->dots.size() : entry.points.size();
}

// Everything of one drawing: the ranges and where they lie.
class EntryPainter {
public:
    EntryPainter(Canvas& canvas, const FreqTempScale& scale) : m_canvas(canvas), m_scale(scale) {}

    void points(const scatterEntry& entry) {
        DotPainter dots(m_scale.area, m_canvas.pixel(), FreqTempView::POINT_SIZE + OUTLINE, dot_count(entry));
        for_each_dot(entry, [&](freqPoint point, unsigned count) { dots.add(m_scale.place(point), count); });
        dots.paint(m_canvas, ink_of(entry));
    }

    void fit(const scatterEntry& entry, bool with_band) {
        const auto& fit = *entry.quadRegression;
        std::vector<Point> line;
        std::vector<Point> band; // along the upper line, back along the lower one
        const int steps = fit.x_max > fit.x_min ? FIT_STEPS : 0;
        for (int i = 0; i <= steps; ++i)
            line.push_back(fitted(fit, step(fit, i), 0));
        for (int i = 0; i <= steps; ++i)
            band.push_back(fitted(fit, step(fit, i), fit.y_stddev));
        for (int i = steps; i >= 0; --i)
            band.push_back(fitted(fit, step(fit, i), -fit.y_stddev));
        if (with_band && all_finite(band))
            polygon(band, lighter(entry));
        stroke(line, solid(entry), FIT_WIDTH);
    }

    void means(const scatterEntry& entry, const FreqTempRanges& ranges) {
        const auto bins = degree_bins(ranges.min_temp, ranges.max_temp);
        const double first = entry.digest ? entry.digest->first_degree : ranges.min_temp;
        const auto means = entry.digest ? entry.digest->means : mean_frequencies(entry.points, first, bins);
        std::vector<Point> line;
        for (std::size_t bin = 0; bin < means.size(); ++bin)
            if (means[bin].count > 0)
                line.push_back(m_scale.place({first + static_cast<double>(bin), means[bin].mean}));
        stroke(line, solid(entry), 1);
    }

    void newest(const scatterEntry& entry) {
        const Point center = m_scale.place(entry.digest ? entry.digest->last : entry.points.back());
        std::vector<Point> corners;
        for (int i = 0; i < DISC_CORNERS; ++i)
            corners.push_back(polar(center, FreqTempView::POINT_SIZE / 2, 2 * std::numbers::pi * i / DISC_CORNERS));
        polygon(corners, ink_of(entry));
    }

private:
    static double step(const QuadRegression& fit, int number) {
        return fit.x_min + (fit.x_max - fit.x_min) * number / FIT_STEPS;
    }
    [[nodiscard]] Point fitted(const QuadRegression& fit, double x, double above) const {
        return m_scale.place({x, fit.evaluate(x) + above});
    }
    static bool all_finite(const std::vector<Point>& points) {
        return std::ranges::all_of(points,
                                   [](Point point) { return std::isfinite(point.x) && std::isfinite(point.y); });
    }

    void polygon(const std::vector<Point>& corners, const Ink& ink) {
        if (const auto inside = clipped_polygon(corners, m_scale.area); inside.size() >= 3)
            m_canvas.fill_polygon(inside, ink);
    }
    void stroke(const std::vector<Point>& points, const Ink& ink, double width) {
        for (const auto& line : clipped_line(points, m_scale.area))
            m_canvas.polyline(line, ink, width);
    }

    Canvas& m_canvas;
    const FreqTempScale& m_scale;
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

void FreqTempView::draw(Canvas& canvas, Rect visible) const {
    const FreqTempScale scale{{m_min_temp, m_max_temp, m_min_freq, m_max_freq}, drawing_area(visible)};
    const Rect plot = plot_of(visible);
    fill_plot(canvas, plot);
    draw_frame(canvas, plot);
    draw_freqtemp_axes(canvas, plot, scale);
    if (scale.area.width <= 0 || scale.area.height <= 0)
        return;
    EntryPainter painter(canvas, scale);
    for (const auto& [name, entry] : m_scatter) {
        if (!entry.selected || entry.points.empty())
            continue;
        if (m_show_scatter_points)
            painter.points(entry);
        if (has_drawn_fit(entry))
            painter.fit(entry, m_show_freq_bounds);
        if (m_show_mean_frequency && m_max_temp != m_min_temp)
            painter.means(entry, scale.ranges);
        if (m_show_last_record)
            painter.newest(entry);
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
