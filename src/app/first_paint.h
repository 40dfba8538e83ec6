// For what can wait until a window is seen.
#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace tickervantage {

// Calls `then` once, from the event loop, when the window has been painted for the first time. Main thread only.
inline void after_first_paint(QWidget& window, std::function<void()> then) {
    class FirstPaint : public QObject {
    public:
        FirstPaint(QWidget& window, std::function<void()> then) : QObject(&window), m_then(std::move(then)) {
            window.installEventFilter(this);
        }
        bool eventFilter(QObject* window, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                window->removeEventFilter(this);
                QTimer::singleShot(0, this, [this] {
                    m_then();
                    deleteLater();
                });
            }
            return false;
        }

    private:
        std::function<void()> m_then;
    };
    new FirstPaint(window, std::move(then));
}

} // namespace tickervantage
