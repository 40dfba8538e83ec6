// What Qt does not do for screen readers by itself. A plain widget they pass over; of a label with a name they hear the
// name alone; and a box that they switch changes without saying `clicked`, so that nothing comes of it. Main thread.
#pragma once

#include <QAccessible>

class QWidget;

namespace tickervantage {

// To be called in the widget's constructor. Its accessible name and description say the rest.
void announce_as(QWidget* widget, QAccessible::Role role);

// From now on the text of each label that has an accessible name is its description, a new text is told, and buttons
// that stay down are clicked, not just switched. To be called once, after the application was made.
void serve_screen_readers();

} // namespace tickervantage
