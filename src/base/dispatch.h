// Where work runs: one main thread, and named serial queues beside it.
//
// Work handed to one queue runs in the order it was handed over, one piece after the other. Pieces handed to the main
// thread run there, in order, when its event loop comes round. Both may be called from any thread.
#pragma once

#include <functional>
#include <memory>

namespace tickervantage {

using Work = std::function<void()>;

class MainThread {
public:
    virtual ~MainThread() = default;

    // Runs the work later on the main thread. Work that is still waiting when the program ends is dropped.
    virtual void main_async(Work work) = 0;
};

class DispatchQueueSerial {
public:
    virtual ~DispatchQueueSerial() = default;

    // Runs the work later, off the main thread. The destructor waits for the piece that is running and drops the rest.
    virtual void async(Work work) = 0;
};

// Lends queues to those who come and go, such as windows that each follow a log.
class QueueLender {
public:
    virtual ~QueueLender() = default;

    // The queue goes back with the last pointer to it, on the main thread. The lender outlives the loan.
    [[nodiscard]] virtual std::shared_ptr<DispatchQueueSerial> lend() = 0;
};

} // namespace tickervantage
