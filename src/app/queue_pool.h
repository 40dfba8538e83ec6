// Serial queues lent to windows and taken back when these close. A queue that comes back may still be ending its last
// piece of work, which is why it is kept rather than waited for; the next borrower's work comes behind that.
#pragma once

#include "base/queue_lender.h"
#include "linux/serial_queue.h"

#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

class QueuePool : public QueueLender {
public:
    explicit QueuePool(std::string label) : m_label(std::move(label)) {}

    // Main thread only.
    [[nodiscard]] std::shared_ptr<DispatchQueueSerial> lend() override {
        if (m_free.empty()) {
            m_all.push_back(std::make_unique<SerialQueue>(m_label));
            m_free.push_back(m_all.back().get());
        }
        SerialQueue* queue = m_free.back();
        m_free.pop_back();
        return {queue, [this](SerialQueue* back) {
                    m_free.push_back(back);
                }};
    }

private:
    std::string m_label;
    std::vector<std::unique_ptr<SerialQueue>> m_all;
    std::vector<SerialQueue*> m_free;
};

} // namespace tickervantage
