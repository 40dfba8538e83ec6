// Intervals in rows below an axis: in each the true value is said to lie. What they share is shaded, those in use are
// filled, and the row that was chosen is set off. Rows stand where the caller's table has them.
//
// Points, y up. Pure; one thread at a time.
#pragma once

#include "draw/canvas.h"
#include "draw/plots/interval_scale.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct IntervalRow {
    enum class Kind : unsigned char { used, unused, refused };
    double middle = 0; // y
    std::optional<TimeInterval> interval = {};
    std::optional<double> measured = {}; // s: a mark in the interval
    Kind kind = Kind::unused;
    bool is_chosen = false;
};

struct IntervalPicture {
    Rect bounds;
    double axis_height = 0;        // at the upper edge
    double foot_height = 0;        // at the lower edge, for the words
    double row_height = 0;         // of each row
    std::vector<IntervalRow> rows; // those in sight
    std::optional<TimeInterval> shared = {};
    std::string below = {}; // words at the foot, at its left edge and at its right one
    std::string above = {};
    std::string decimal_point = ".";
};

void draw_intervals(Canvas& canvas, const IntervalPicture& picture, const IntervalScale& scale);

} // namespace tickervantage
