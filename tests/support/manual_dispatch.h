// A main thread and queues whose crank the test turns.
#pragma once

#include "base/dispatch.h"

#include <deque>
#include <utility>

namespace tickervantage::testing {

class Crank {
public:
    void add(Work work) { m_waiting.push_back(std::move(work)); }
    [[nodiscard]] std::size_t waiting() const { return m_waiting.size(); }

    // Runs what is waiting now; false when nothing was.
    bool turn() {
        auto now = std::exchange(m_waiting, {});
        for (auto& work : now)
            work();
        return !now.empty();
    }

private:
    std::deque<Work> m_waiting;
};

class ManualMainThread : public MainThread, public Crank {
public:
    void main_async(Work work) override { add(std::move(work)); }
};

class ManualQueue : public DispatchQueueSerial, public Crank {
public:
    void async(Work work) override { add(std::move(work)); }
};

} // namespace tickervantage::testing
