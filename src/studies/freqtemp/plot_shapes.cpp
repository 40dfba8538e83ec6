#include "studies/freqtemp/plot_shapes.h"

#include "draw/graph_geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t FEW = 2500;     // squares that may go to the canvas one by one
constexpr std::size_t CLOUD = 10'000; // from here on the shades of overlap are not worth three times the work
constexpr unsigned LEVELS = 3;        // covered three times is as good as solid
constexpr double LARGEST_GRID = 64e6; // pixels
constexpr int DISC_CORNERS = 24;

std::size_t dot_count(const scatterEntry& entry) {
    return entry.digest ? entry.digest->dots.size() : entry.points.size();
}

int pixels_of(double length, double per_point) {
    return std::max(1, static_cast<int>(std::lround(length * per_point)));
}

} // namespace

void PlotShapes::squares(const scatterEntry& entry, double side, const Color& color) {
    const double pixel = m_canvas.pixel();
    const bool fits = m_scale.area.width / pixel * (m_scale.area.height / pixel) < LARGEST_GRID;
    if (dot_count(entry) <= FEW || !fits)
        squares_one_by_one(entry, side, color);
    else
        squares_together(entry, side, color, pixel);
}

void PlotShapes::squares_one_by_one(const scatterEntry& entry, double side, const Color& color) {
    std::vector<Rect> boxes;
    for_each_dot(entry, [&](freqPoint point, unsigned count) {
        const Point center = m_scale.place(point);
        if (const auto box = clipped_box({center.x - side / 2, center.y - side / 2, side, side}, m_scale.area))
            boxes.insert(boxes.end(), count, *box);
    });
    m_canvas.fill_rects(boxes, color);
}

void PlotShapes::squares_together(const scatterEntry& entry, double side, const Color& color, double pixel) {
    DotCounts counts(pixels_of(m_scale.area.width, 1 / pixel), pixels_of(m_scale.area.height, 1 / pixel),
                     pixels_of(side, 1 / pixel));
    const double top = upper_edge(m_scale.area);
    for_each_dot(entry, [&](freqPoint point, unsigned count) {
        const Point center = m_scale.place(point);
        counts.add((center.x - m_scale.area.x) / pixel, (top - center.y) / pixel, count);
    });
    const unsigned levels = dot_count(entry) > CLOUD ? 1 : LEVELS;
    for (unsigned level = 1; level <= levels; ++level) {
        std::vector<Rect> boxes;
        for (const auto& box : counts.boxes(level))
            boxes.push_back({m_scale.area.x + box.left * pixel, top - (box.top + box.height) * pixel, box.width * pixel,
                             box.height * pixel});
        m_canvas.fill_rects(boxes, color);
    }
}

void PlotShapes::band(std::span<const Point> upper, std::span<const Point> lower, const Color& color) {
    std::vector<Point> corners(upper.begin(), upper.end());
    corners.insert(corners.end(), lower.rbegin(), lower.rend());
    polygon(corners, color);
}

void PlotShapes::line(std::span<const Point> corners, double width, const Color& color) {
    for (const auto& part : clipped_line(corners, m_scale.area))
        m_canvas.polyline(part, color, width);
}

void PlotShapes::disc(Point center, double diameter, const Color& color) {
    std::vector<Point> corners;
    corners.reserve(DISC_CORNERS);
    for (int i = 0; i < DISC_CORNERS; ++i)
        corners.push_back(polar(center, diameter / 2, 2 * std::numbers::pi * i / DISC_CORNERS));
    polygon(corners, color);
}

void PlotShapes::polygon(const std::vector<Point>& corners, const Color& color) {
    if (const auto inside = clipped_polygon(corners, m_scale.area); inside.size() >= 3)
        m_canvas.fill_polygon(inside, color);
}

} // namespace tickervantage
