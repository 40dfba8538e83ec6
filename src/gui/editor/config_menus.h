// The menu bar of the configuration editor: every action by name, which is also the item's object name. Main thread.
#pragma once

#include <QStringList>

#include <functional>
#include <map>
#include <string>

class QAction;
class QMainWindow;
class QMenu;

namespace tickervantage {

using ConfigActionHandlers = std::map<std::string, std::function<void()>>;
using ConfigActions = std::map<std::string, QAction*>;

struct RecentFiles {
    std::function<QStringList()> list;
    std::function<void(const QString& path)> open;
};

// The menu is filled whenever it opens.
void fill_with_recent_files(QMenu* menu, const RecentFiles& recent);

// An item without a handler is disabled.
[[nodiscard]] ConfigActions build_config_menus(QMainWindow* window, const ConfigActionHandlers& handlers,
                                               const RecentFiles& recent);

} // namespace tickervantage
