#include "qt/qt_master_timer.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace tickervantage {

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
