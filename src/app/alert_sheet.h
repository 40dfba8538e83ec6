// Alerts and questions as sheets of a window. Main thread.
#pragma once

#include "settings/warning_register.h"

class QWidget;

namespace tickervantage {

// One that can be silenced. Returns at once; the sheet deletes itself. Its object name is the alert's identifier.
void show_alert(QWidget* window, const Alert& alert, AlertAnswered answered);

// The same for what has to be asked each time: it cannot be silenced, and Return presses the last button, the harmless
// one.
void show_question(QWidget* window, const Alert& alert, ButtonPressed answered);

} // namespace tickervantage
