// The scale of the plot of frequency against temperature, and its axes.
#pragma once

#include "draw/canvas.h"
#include "studies/freqtemp/point_list.h"

namespace tickervantage {

struct FreqTempRanges {
    double min_temp = 0; // degrees Celsius
    double max_temp = 0;
    double min_freq = 0; // ppm
    double max_freq = 0;
    friend bool operator==(const FreqTempRanges&, const FreqTempRanges&) = default;
};

// Where values lie in the drawing area, and back. A range of no length lies in the area's middle.
struct FreqTempScale {
    FreqTempRanges ranges;
    Rect area;

    [[nodiscard]] Point place(freqPoint point) const {
        return {area.x + along(point.temperature, ranges.min_temp, ranges.max_temp, area.width),
                area.y + along(point.frequency, ranges.min_freq, ranges.max_freq, area.height)};
    }
    [[nodiscard]] freqPoint value(Point place) const {
        return {ranges.min_temp + (place.x - area.x) * (ranges.max_temp - ranges.min_temp) / area.width,
                ranges.min_freq + (place.y - area.y) * (ranges.max_freq - ranges.min_freq) / area.height};
    }

private:
    [[nodiscard]] static double along(double value, double low, double high, double length) {
        return high > low ? (value - low) * length / (high - low) : length / 2 + (value - low);
    }
};

// Marks and labels of both axes, in the margins outside `plot`. Labels that have no room beside their neighbours are
// left out; a range of no length has one, in the middle.
void draw_freqtemp_axes(Canvas& canvas, Rect plot, const FreqTempScale& scale);

} // namespace tickervantage
