// The days and nights that the data know, to be chosen by name, and a dialog for any other period. Main thread.
#pragma once

#include "draw/plots/time_marks.h"

#include <functional>

class QMenu;
class QWidget;

namespace tickervantage {

using RangeChosen = std::function<void(const TimeRange&)>;

// Fills the menu anew: the newest seven nights, from 18:00 to 08:00, and below them the newest seven days, on the
// machine's own calendar.
void fill_range_menu(QMenu* menu, const TimeRange& known, const RangeChosen& chosen);

// Asks from when to when, beginning with `now`. Returns at once; `chosen` is not called when nothing was.
void ask_for_range(QWidget* window, const TimeRange& now, RangeChosen chosen);

} // namespace tickervantage
