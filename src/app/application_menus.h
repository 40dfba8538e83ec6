// The menu bar: every action of the program, by name. An action whose handler is not there is shown disabled.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>

class QAction;
class QMainWindow;
class QMenu;

namespace tickervantage {

// By the name of the action, which is also the object name of its menu item, but for the items and the menu that have a
// field of their own below: their object name is the field's.
using MenuHandlers = std::map<std::string, std::function<void()>>;

struct ApplicationMenus {
    QMenu* m_action = nullptr;           // the administrative jobs
    QMenu* m_windows = nullptr;          // the windows that can be opened
    QAction* m_frequency_item = nullptr; // opens the frequency-temperature window
    QAction* m_spectrum_item = nullptr;  // opens the spectrum window
    std::map<std::string, QAction*> actions;
};

// The five items of the action menu that are disabled while an administrative job is under way.
inline constexpr std::array<const char*, 5> exclusive_actions{"installChrony", "uninstallChrony", "startChrony",
                                                              "stopChrony", "runChronywake"};

// `job_in_progress` is asked whenever the action menu opens.
[[nodiscard]] ApplicationMenus build_application_menus(QMainWindow* window, const MenuHandlers& handlers,
                                                       std::function<bool()> job_in_progress);

} // namespace tickervantage
