// The main thread of a Qt program: work runs from its event loop.
#pragma once

#include "base/dispatch.h"

#include <memory>

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

} // namespace tickervantage
