// The buttons of a plot that one moves in as a browser does: back to what was in sight before, and forward again. Main
// thread.
#pragma once

class QToolButton;
class QWidget;

namespace tickervantage {

class ViewPath;

struct PathButtons {
    QToolButton* back = nullptr; // "back", Alt+Left
    QToolButton* forward = nullptr;

    void show(const ViewPath& path) const; // where it leads
};

[[nodiscard]] PathButtons make_path_buttons(QWidget* parent);

} // namespace tickervantage
