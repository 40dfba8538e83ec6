// Lets screen readers read a plot's name and description: a plain widget of our own they pass over. Main thread.
#pragma once

class QWidget;

namespace tickervantage {

// To be called in the widget's constructor.
void announce_as_chart(QWidget* plot);

} // namespace tickervantage
