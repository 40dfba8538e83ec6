// The program's own log, in a file.
//
// The file is `tickervantage.log` in the folder given, mode 0600; at 1 MiB it becomes `tickervantage.log.1`, whose
// predecessor goes. Several programs may write the same file: lines are appended whole, and the file is opened afresh
// for each batch.
//
// log() only puts the line into memory; the queue writes it. At most 1000 lines wait: further ones are dropped and
// counted, and the count is written instead. close() writes what waits, on the calling thread; lines after it are
// dropped. The queue must outlive the last call of log(); it may be destroyed before or after the logger.
#pragma once

#include "base/dispatch.h"
#include "base/logger.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tickervantage {

class FileLogger : public Logger {
public:
    using WallClock = std::function<std::chrono::system_clock::time_point()>;

    FileLogger(DispatchQueueSerial& queue, const std::string& folder, WallClock now = std::chrono::system_clock::now);
    ~FileLogger() override; // closes
    FileLogger(const FileLogger&) = delete;
    FileLogger& operator=(const FileLogger&) = delete;

    void log(LogLevel level, std::string_view sentence) override;
    void close();

private:
    struct State;

    DispatchQueueSerial& m_queue;
    WallClock m_now;
    std::shared_ptr<State> m_state; // shared with the work that waits on the queue
};

// "2026-11-21T05:20:32Z info sentence", without a line break. What could move a terminal's cursor or forge a line
// (control characters, damaged UTF-8) is written as \xNN; what is longer than 4 KiB is cut.
[[nodiscard]] std::string log_line(std::chrono::system_clock::time_point time, LogLevel level,
                                   std::string_view sentence);

} // namespace tickervantage
