// Where the main window's controls stand.
#pragma once

#include "gui/main/main_window_controls.h"

namespace tickervantage {

// The controls are children of `central`, which becomes the area's widget. The report's pane is made here.
void lay_out_main_window(MainArea& area, QWidget* central, MainWindowControls& controls);

} // namespace tickervantage
