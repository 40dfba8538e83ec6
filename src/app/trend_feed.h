// Brings the last hour of the history into the main window: at its start, and with each reading. Main thread; the file
// is read on the queue.
#pragma once

#include "base/background.h"
#include "chrony/truth/clock_truth.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <string>

namespace tickervantage {

class TickervantageWindow;

class TrendFeed : public QObject {
    Q_OBJECT

public:
    // All live longer. Without a file nothing is brought.
    TrendFeed(std::string file, DispatchQueueSerial& queue, MainThread& main_thread, TickervantageWindow& window);

    void read();

private:
    void take(const std::shared_ptr<const ClockTruth>& truth);

    std::string m_file;
    DispatchQueueSerial& m_queue;
    TickervantageWindow& m_window;
    std::shared_ptr<const ClockTruth> m_newest; // may not be in the file yet; null: nothing was read yet
    std::int64_t m_newest_time = 0;
    Background m_background;
};

} // namespace tickervantage
