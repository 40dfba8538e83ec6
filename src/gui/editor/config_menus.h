// The menu bar of the configuration editor: every action by name, which is also the item's object name. Main thread.
#pragma once

#include <map>
#include <string>

class QAction;
class QMainWindow;
class QMenu;

namespace tickervantage {

using ConfigActions = std::map<std::string, QAction*>;

// Nothing is connected yet. The menus "openRecent" and "includedFiles" are empty.
[[nodiscard]] ConfigActions build_config_menus(QMainWindow* window);

} // namespace tickervantage
