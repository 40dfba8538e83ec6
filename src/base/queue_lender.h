// Lends queues to those who come and go, such as windows that each follow a log.
#pragma once

#include "base/dispatch.h"

#include <memory>

namespace tickervantage {

class QueueLender {
public:
    virtual ~QueueLender() = default;

    // The queue goes back with the last pointer to it, on the main thread. The lender outlives the loan.
    [[nodiscard]] virtual std::shared_ptr<DispatchQueueSerial> lend() = 0;
};

} // namespace tickervantage
