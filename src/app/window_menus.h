// The Window menu, in every window of the program: the windows that can be opened, the main window first, and those
// that are open. Whichever window is left, all others are reached from it. No window comes up larger than the screen.
// Main thread only.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class QAction;
class QMenu;

namespace tickervantage {

class WindowMenus : public QObject {
    Q_OBJECT
public:
    // `menu` is that of the main window, with an item for each window that can be opened: the others' menus have the
    // same items. `quit` is added to those. All outlive the object.
    WindowMenus(QMenu& menu, QAction& quit);

protected:
    // Sees each window before it is shown for the first time.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void add_to(QWidget& window);
    void add_to_dialog(QWidget& dialog);
    void list_open_windows(QMenu& menu, const QWidget& here);

    QMenu& m_menu;
    QAction& m_quit;
    QList<QAction*> m_items;            // without the open windows
    QList<QPointer<QWidget>> m_windows; // ever seen, in that order; the main window first
};

} // namespace tickervantage
