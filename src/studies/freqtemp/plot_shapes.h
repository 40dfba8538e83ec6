// What the plot of frequency against temperature is made of, and two ways to put it there: on any canvas, shape by
// shape; or onto a canvas's pixels, which is ten times as quick for thousands of points. The two look alike.
//
// Lengths are points, y up. Everything is cut off at the scale's area. One thread.
#pragma once

#include "draw/canvas.h"
#include "studies/freqtemp/freqtemp_axes.h"
#include "studies/freqtemp/scatter_map.h"

#include <memory>
#include <span>

namespace tickervantage {

class PlotShapes {
public:
    virtual ~PlotShapes() = default;

    // A square of that side around every point of the entry.
    virtual void squares(const scatterEntry& entry, double side, const Color& color) = 0;

    // What lies between two lines whose corners have the same x, from left to right. All finite.
    virtual void band(std::span<const Point> upper, std::span<const Point> lower, const Color& color) = 0;

    // Corners that are not finite interrupt the line.
    virtual void line(std::span<const Point> corners, double width, const Color& color) = 0;

    virtual void disc(Point center, double diameter, const Color& color) = 0;

    // After the last shape of each entry.
    virtual void end_entry() {}
};

// Both borrow what they are given.
[[nodiscard]] std::unique_ptr<PlotShapes> shapes_on_canvas(Canvas& canvas, const FreqTempScale& scale);
[[nodiscard]] std::unique_ptr<PlotShapes> shapes_on_pixels(const CanvasPixels& pixels, const FreqTempScale& scale);

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
