// Alerts and questions as sheets of a window. Main thread.
#pragma once

#include "settings/suppressible_alert.h"

#include <functional>

class QWidget;

namespace tickervantage {

// One that can be silenced. Returns at once; the sheet deletes itself. Its object name is the alert's identifier.
void show_alert(QWidget* window, const Alert& alert, std::function<void(AlertAnswer)> answered);

// The same for what has to be asked each time: it cannot be silenced, and Return presses the last button, the harmless
// one.
void show_question(QWidget* window, const Alert& alert, std::function<void(std::size_t button)> answered);

} // namespace tickervantage
