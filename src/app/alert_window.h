// An alert that can be silenced, as a sheet of a window. Main thread.
#pragma once

#include "instruments/suppressible_alert.h"

#include <functional>

class QWidget;

namespace tickervantage {

// Returns at once; the sheet deletes itself. Its object name is the alert's identifier.
void show_alert(QWidget* window, const Alert& alert, std::function<void(AlertAnswer)> answered);

} // namespace tickervantage
