// Shows a window before all others, from wherever it is: closed, minimised or behind.
#pragma once

#include <QWidget>

namespace tickervantage {

inline void bring_to_front(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace tickervantage
