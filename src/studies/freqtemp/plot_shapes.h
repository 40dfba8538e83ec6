// What the plot of frequency against temperature is made of, on a canvas that has no pixels of its own at hand.
//
// Lengths are points, y up. Everything is cut off at the scale's area. One thread.
#pragma once

#include "draw/canvas.h"
#include "studies/freqtemp/dot_counts.h"
#include "studies/freqtemp/freqtemp_axes.h"
#include "studies/freqtemp/scatter_map.h"

#include <span>
#include <vector>

namespace tickervantage {

class PlotShapes {
public:
    // Both outlive this.
    PlotShapes(Canvas& canvas, const FreqTempScale& scale) : m_canvas(canvas), m_scale(scale) {}

    // A square of that side, the same for all entries, around every point of the entry. Not on a layer.
    void squares(const scatterEntry& entry, double side, const Color& color);

    // What lies between two lines whose corners have the same x, from left to right. All finite.
    void band(std::span<const Point> upper, std::span<const Point> lower, const Color& color);

    // Corners that are not finite interrupt the line.
    void line(std::span<const Point> corners, double width, const Color& color);

    void disc(Point center, double diameter, const Color& color);

private:
    void squares_one_by_one(const scatterEntry& entry, double side, const Color& color);
    void squares_together(const scatterEntry& entry, double side, const Color& color, double pixel);
    void polygon(const std::vector<Point>& corners, const Color& color);

    Canvas& m_canvas;
    const FreqTempScale& m_scale;
};

// Calls use(point, how many of them) for everything of an entry that is drawn as a point.
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

} // namespace tickervantage
