// Draws the lanes of the sources: one row each, by colour and hatching the state in which it stood over time, and below
// a red edge that is the higher the more of its newest polls went unanswered. Points, y up. One thread.
#pragma once

#include "chrony/truth/source_standing.h"
#include "studies/history/history_data.h"
#include "studies/history/line_painter.h"

#include <optional>
#include <span>

namespace tickervantage {

// As the table of sources has it: of the standing as such, before a canvas makes it readable.
[[nodiscard]] Color color_of(SourceStanding standing);

struct LaneLayout {
    Rect area;
    std::size_t count = 0;

    [[nodiscard]] double height() const; // of one, with the room between two
    [[nodiscard]] Rect lane(std::size_t at) const;
    [[nodiscard]] std::optional<std::size_t> lane_at(double y) const;
};

void draw_lane(Canvas& canvas, const ColumnGrid& grid, Rect box, const HistoryLane& lane);

// A box in a standing's colour and hatching, for legends too.
void draw_standing(Canvas& canvas, Rect box, SourceStanding standing);

} // namespace tickervantage
