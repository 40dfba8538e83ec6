// A serial queue on a thread of its own, which begins with the first work: a program has more queues than it needs at
// once.
#pragma once

#include "base/dispatch.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace tickervantage {

class SerialQueue : public DispatchQueueSerial {
public:
    // The label names the thread for debuggers; the kernel shows its last 15 characters.
    explicit SerialQueue(const std::string& label);
    ~SerialQueue() override;
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    void async(Work work) override;

private:
    void serve(const std::stop_token& stop);

    const std::string m_name;
    std::mutex m_mutex; // guards m_waiting and the beginning of m_thread
    std::condition_variable_any m_news;
    std::deque<Work> m_waiting;
    std::jthread m_thread; // last: it uses all of the above
};

} // namespace tickervantage
