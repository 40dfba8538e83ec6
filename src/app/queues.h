// The program's queues that are not there from the beginning. Main thread only.
#pragma once

#include "base/dispatch.h"
#include "linux/serial_queue.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Serial queues lent to windows and taken back when these close. A queue that comes back may still be ending its last
// piece of work, which is why it is kept rather than waited for; the next borrower's work comes behind that.
class QueuePool : public QueueLender {
public:
    explicit QueuePool(std::string label) : m_label(std::move(label)) {}

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

// Serial queues by label, each made when it is first asked for and kept to the end.
class LabelledQueues : public JobQueues {
public:
    [[nodiscard]] DispatchQueueSerial& queue(std::string_view label) override {
        auto& found = m_queues[std::string(label)];
        if (!found)
            found = std::make_unique<SerialQueue>(std::string(label));
        return *found;
    }

private:
    std::map<std::string, std::unique_ptr<SerialQueue>> m_queues;
};

} // namespace tickervantage
