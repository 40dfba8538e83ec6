// A canvas's own pixels, for drawing code that has so many small shapes that it lays them down itself.
//
// In pixels y goes DOWN from the upper left one. Valid from Canvas::begin_pixels() to end_pixels(). A plain value.
#pragma once

#include "draw/coverage_brush.h"

namespace tickervantage {

struct CanvasPixels {
    PixelRows rows; // of the upper left pixel on
    int width = 0;
    int height = 0;
    double scale_x = 1; // pixels a point
    double scale_y = 1;
    double left = 0;   // where x = 0 lies
    double bottom = 0; // where y = 0 lies
    Color text = {};   // what the roles look like here
    Color background = {};
    bool is_canvas = false; // they are the canvas's own, as they stand; else a layer that is laid on it at the end

    [[nodiscard]] double x(double at) const { return at * scale_x + left; }
    [[nodiscard]] double y(double at) const { return bottom - at * scale_y; }
};

} // namespace tickervantage
