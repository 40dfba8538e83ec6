// What stands beside the crosshair: in each panel the values under it, so that nobody has to look away from the curve,
// and at the axis its time. Points, y up. One thread.
#pragma once

#include "studies/history/history_view.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct PointerNote {
    HistoryPanel panel{};
    std::optional<Color> color; // of the curve, before a canvas makes it readable
    std::string text;
};

struct PointerNotes {
    double time = 0;
    std::string moment = {};              // the time in words
    std::string event = {};               // what happened there; empty: nothing
    std::vector<PointerNote> values = {}; // of a panel from above downwards
};

// To the right of the crosshair, or to its left where there is no room. Where a panel is too low for all of its notes,
// the first ones stand.
void draw_notes(Canvas& canvas, const HistoryView& view, Rect bounds, const PointerNotes& notes);

} // namespace tickervantage
