// The demonstration's own items in the menu of chrony: its servers can be pulled out and put back, so that one sees a
// switch of the source, holdover, and the recovery. Main thread.
#pragma once

#include "app/application_menus.h"
#include "base/background.h"
#include "base/failure.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class QAction;

namespace tickervantage {

// Of both: waits; not on the main thread.
struct DemonstrationControl {
    std::function<Result<>(std::size_t server, bool out)> pull_out = {};
    std::function<Result<>(const std::string& text)> install = {}; // of the client's configuration
};

struct DemonstrationMenuParts {
    DemonstrationControl control;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
};

class DemonstrationMenu : public QObject {
    Q_OBJECT
public:
    // Puts the items in front of the menu's others.
    DemonstrationMenu(DemonstrationMenuParts parts, const ApplicationMenus& menus);

Q_SIGNALS:
    void changed();                        // a server came or went
    void complained(const QString& words); // it could not

private:
    void pull_out(const std::vector<std::size_t>& servers, bool out);
    void show();

    DemonstrationMenuParts m_parts;
    QAction* m_first = nullptr;
    QAction* m_all = nullptr;
    std::vector<bool> m_is_out; // of each server
    Background m_background;
};

} // namespace tickervantage
