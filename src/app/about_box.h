// The About box.
#pragma once

class QWidget;

namespace tickervantage {

// Shows it over the parent and returns at once; it deletes itself when closed.
void show_about(QWidget* parent);

} // namespace tickervantage
