#include "qt/qt_main_thread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <deque>
#include <mutex>
#include <utility>

namespace tickervantage {

// One event stands for one piece of work. The pieces themselves do not travel in Qt's events, since a functor that Qt
// delivers may be destroyed by the sender.
class QtMainThread::Inbox : public QObject {
public:
    void add(Work work) {
        {
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(work));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

protected:
    void customEvent(QEvent*) override {
        const Work work = take();
        work();
    }

private:
    Work take() {
        const std::lock_guard lock(m_mutex);
        Work work = std::move(m_waiting.front());
        m_waiting.pop_front();
        return work;
    }

    std::mutex m_mutex; // guards what follows
    std::deque<Work> m_waiting;
};

QtMainThread::QtMainThread() : m_inbox(std::make_unique<Inbox>()) {}

QtMainThread::~QtMainThread() = default;

void QtMainThread::main_async(Work work) {
    m_inbox->add(std::move(work));
}

} // namespace tickervantage
