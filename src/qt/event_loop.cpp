#include "qt/event_loop.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEvent>
#include <QObject>
#include <QTimer>

#include <algorithm>
#include <cmath>
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

class QtRepeater : public Repeater {
public:
    QtRepeater(QtMasterTimer& owner, std::string_view name, Pace pace) : m_owner(owner), m_pace(pace) {
        m_timer.setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(pace == Pace::wall_second);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { fire(); });
        m_owner.m_repeaters.insert(this);
    }
    ~QtRepeater() override { m_owner.m_repeaters.erase(this); }
    QtRepeater(const QtRepeater&) = delete;
    QtRepeater& operator=(const QtRepeater&) = delete;

    void start(double interval_seconds, std::function<void()> tick) override {
        m_milliseconds = std::max<qint64>(1, std::llround(interval_seconds * 1000));
        m_tick = std::move(tick);
        if (m_owner.is_running())
            arm();
    }
    void stop() override {
        m_tick = nullptr;
        m_timer.stop();
    }
    [[nodiscard]] bool is_running() const override { return m_tick != nullptr; }

    void arm() {
        if (m_tick)
            m_timer.start(static_cast<int>(m_pace == Pace::free ? m_milliseconds : until_full_interval()));
    }
    void disarm() { m_timer.stop(); }

private:
    // A millisecond past the full second, so that the clock shows the new one even when the timer is a little early.
    [[nodiscard]] qint64 until_full_interval() const {
        return m_milliseconds - QDateTime::currentMSecsSinceEpoch() % m_milliseconds + 1;
    }

    void fire() {
        if (m_pace == Pace::wall_second)
            arm();
        const auto tick = m_tick; // a copy: the handler may stop or start this repeater
        if (tick)
            tick();
    }

    QtMasterTimer& m_owner;
    Pace m_pace;
    qint64 m_milliseconds = 0;
    std::function<void()> m_tick;
    QTimer m_timer;
};

void QtMasterTimer::start() {
    if (m_running)
        return;
    m_running = true;
    for (auto* repeater : m_repeaters)
        repeater->arm();
}

void QtMasterTimer::stop() {
    m_running = false;
    for (auto* repeater : m_repeaters)
        repeater->disarm();
}

std::unique_ptr<Repeater> QtMasterTimer::make_repeater(std::string_view name, Pace pace) {
    return std::make_unique<QtRepeater>(*this, name, pace);
}

} // namespace tickervantage
