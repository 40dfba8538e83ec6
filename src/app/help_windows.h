// The help window of the application, made when it is first asked for, and the ways to it: the Help menu, and F1 in
// every window, which opens the page that fits it. Main thread only.
#pragma once

#include "app/application_menus.h"
#include "gui/help/help_viewer.h"

#include <QObject>

#include <memory>

namespace tickervantage {

// All of it outlives the window, and the main thread outlives the queue.
struct HelpWindowsParts {
    HelpSources sources;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
};

class HelpWindows : public QObject {
    Q_OBJECT
public:
    explicit HelpWindows(HelpWindowsParts parts);
    ~HelpWindows() override;
    HelpWindows(const HelpWindows&) = delete;
    HelpWindows& operator=(const HelpWindows&) = delete;

    void show(const QString& page);
    void connect_items(const ApplicationMenus& menus);

protected:
    // Sees F1 only where the window has no use of its own for it.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    HelpWindowsParts m_parts;
    std::unique_ptr<HelpViewer> m_viewer;
};

} // namespace tickervantage
