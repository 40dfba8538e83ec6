#include "draw/graph_geometry.h"
#include "draw/plots/chart_frames.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tickervantage {

using namespace chart;

const ChartPoint& point_at(const LogChart& chart, const ChartPlace& place) {
    return chart.panels.at(place.panel).series.at(place.series).points.at(place.point);
}

std::optional<ChartPlace> nearest(const LogChart& chart, Rect bounds, Point at) {
    const auto frames = frames_of(chart, bounds);
    const LogAxis across = level_axis(chart, bounds);
    std::optional<ChartPlace> found;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t panel = 0; panel < frames.size(); ++panel) {
        if (!contains(frames[panel].area, at))
            continue;
        for (std::size_t series = 0; series < chart.panels[panel].series.size(); ++series) {
            const ChartSeries& curve = chart.panels[panel].series[series];
            for (std::size_t point = 0; is_pointable(curve) && point < curve.points.size(); ++point) {
                if (!is_in_sight(chart, curve.points[point].x))
                    continue;
                const double dx = across.place_of(curve.points[point].x) - at.x;
                const double dy = frames[panel].axis.place_of(curve.points[point].y) - at.y;
                constexpr double flat = 0.1; // the place beside counts more than the height
                if (const double far = dx * dx + flat * dy * dy; far < least) {
                    least = far;
                    found = ChartPlace{panel, series, point};
                }
            }
        }
    }
    return found;
}

namespace {

std::vector<ChartPlace> curves_of(const LogChart& chart) {
    std::vector<ChartPlace> curves;
    for (std::size_t panel = 0; panel < chart.panels.size(); ++panel)
        for (std::size_t series = 0; series < chart.panels[panel].series.size(); ++series)
            if (is_pointable(chart.panels[panel].series[series]))
                curves.push_back({panel, series, 0});
    return curves;
}

std::size_t held(std::size_t at, int steps, std::size_t count) {
    const auto wanted = static_cast<std::ptrdiff_t>(at) + steps;
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, static_cast<std::ptrdiff_t>(count) - 1));
}

} // namespace

std::optional<ChartPlace> moved(const LogChart& chart, const std::optional<ChartPlace>& from, int steps) {
    const auto curves = curves_of(chart);
    if (curves.empty())
        return std::nullopt;
    if (!from)
        return curves.front();
    ChartPlace place = *from;
    place.point = held(place.point, steps, chart.panels[place.panel].series[place.series].points.size());
    return place;
}

std::optional<ChartPlace> on_next_curve(const LogChart& chart, const ChartPlace& from, int steps) {
    const auto curves = curves_of(chart);
    const auto is_same = [&from](const ChartPlace& one) {
        return one.panel == from.panel && one.series == from.series;
    };
    const auto at = static_cast<std::size_t>(std::ranges::find_if(curves, is_same) - curves.begin());
    if (at == curves.size())
        return moved(chart, std::nullopt, 0);
    ChartPlace place = curves[held(at, steps, curves.size())];
    const double x = point_at(chart, from).x;
    const auto& points = chart.panels[place.panel].series[place.series].points;
    const auto far = [x](const ChartPoint& point) {
        return std::abs(std::log(point.x / x));
    };
    place.point = static_cast<std::size_t>(std::ranges::min_element(points, {}, far) - points.begin());
    return place;
}

} // namespace tickervantage
