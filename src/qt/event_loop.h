// The main thread of a Qt program: work and repeaters run from its event loop.
#pragma once

#include "base/dispatch.h"
#include "base/repeater.h"

#include <memory>
#include <set>

namespace tickervantage {

// Lives on the main thread. A piece of work is also destroyed there, with all that it holds, never on the thread that
// handed it over; what still waits when this object goes is destroyed with it.
class QtMainThread : public MainThread {
public:
    QtMainThread();
    ~QtMainThread() override;
    QtMainThread(const QtMainThread&) = delete;
    QtMainThread& operator=(const QtMainThread&) = delete;

    void main_async(Work work) override;

private:
    class Inbox;

    std::unique_ptr<Inbox> m_inbox;
};

class QtRepeater;

class QtMasterTimer : public MasterTimer {
public:
    void start() override;
    void stop() override;
    [[nodiscard]] bool is_running() const { return m_running; }
    std::unique_ptr<Repeater> make_repeater(std::string_view name, Pace pace) override;

private:
    friend class QtRepeater;
    std::set<QtRepeater*> m_repeaters;
    bool m_running = false;
};

} // namespace tickervantage
