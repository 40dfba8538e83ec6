// Serial queues by label, each made when it is first asked for and kept to the end. Main thread only.
#pragma once

#include "linux/serial_queue.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tickervantage {

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
