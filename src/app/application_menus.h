// The menu bar: every action of the program, by name. An item stays disabled until somebody answers to it.
#pragma once

#include <QAction>

#include <array>
#include <map>
#include <string>
#include <utility>

class QMainWindow;
class QMenu;

namespace tickervantage {

// The name of an action is also the object name of its menu item, but for the items and the menu that have a field of
// their own: their object name is the field's.
struct ApplicationMenus {
    QMenu* m_action = nullptr;           // the administrative jobs
    QMenu* m_daemon = nullptr;           // whose clock is shown
    QMenu* m_windows = nullptr;          // the windows that can be opened
    QAction* m_frequency_item = nullptr; // opens the frequency-temperature window
    QAction* m_spectrum_item = nullptr;  // opens the spectrum window
    std::map<std::string, QAction*> actions;

    // Lets the item be chosen; `slot` is called then. What it uses outlives the menu bar.
    template <class Slot>
    void on(const char* name, Slot slot) const {
        QAction* action = offer(name);
        QObject::connect(action, &QAction::triggered, action, std::move(slot));
    }

    // The items come without icons: looking for them in the desktop's themes takes a while, and only those of the
    // toolbar are seen at the start.
    static void find_icon(QAction& action);
    void find_icons() const;

private:
    QAction* offer(const char* name) const;
};

// The five items of the action menu that are disabled while an administrative job is under way.
inline constexpr std::array<const char*, 5> exclusive_actions{"installChrony", "uninstallChrony", "startChrony",
                                                              "stopChrony", "runChronywake"};

[[nodiscard]] ApplicationMenus build_application_menus(QMainWindow* window);

} // namespace tickervantage
