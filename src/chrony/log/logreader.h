// Follows a log that somebody else writes, by its name: hands each new line to the main thread, notices when the file
// was replaced and starts again at the top of the new one, and waits while there is none.
//
// The loop runs on the queue and holds it until stop(). Lines arrive on the main thread in the order of the file, one
// by one, each after the one before was handled; a hand-over takes about 4 ms of the main thread's time, then goes on
// behind what else waits there. A log of any size is read in pieces of about 1 MiB, never more than three at once.
//
// `last` is true for a line whose text is that of the last line of the block: of all that was read in one go. What is
// not UTF-8 is dropped, a piece at a time. When the end of a block lacks its line feed, its writer gets 0.2 s to finish
// the line; then it is handed over as it stands, and its rest as a line of its own. Lines written between the last look
// and a rotation are read before the new file. A file that was cut short is read again when it has grown beyond where
// it was.
//
// The problem handler hears one sentence when the file is missing or cannot be read, and an empty one when it is read
// (again). All of the interface: main thread; the handlers may call stop() or follow(), or destroy the reader. After
// stop() no line of that run arrives. What the constructor takes by reference outlives the queue's work.
#pragma once

#include "base/dispatch.h"
#include "base/followed_file.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace tickervantage {

// What tests steer.
struct LogReaderTiming {
    using Clock = std::chrono::steady_clock;
    using Wait =
        std::function<void(std::condition_variable&, std::unique_lock<std::mutex>&, std::chrono::microseconds)>;

    std::function<Clock::time_point()> now = Clock::now;
    // Waits so long, or until the condition is signalled; meanwhile the lock is released.
    Wait wait = [](std::condition_variable& condition, std::unique_lock<std::mutex>& lock,
                   std::chrono::microseconds time) {
        condition.wait_for(lock, time);
    };
};

class LogReader {
public:
    static constexpr int POLLINTERVAL = 1000000; // microseconds
    static constexpr std::string_view QUEUE_LABEL = "net.brisklane.chrony.logger";

    using LineHandler = std::function<void(std::string_view line, bool last)>;
    using ProblemHandler = std::function<void(const std::optional<Failure>& problem)>;
    struct Handlers {
        LineHandler line;
        ProblemHandler problem = {};
    };

    // The queue is the reader's alone.
    LogReader(std::string name, FollowedFiles& files, DispatchQueueSerial& queue, MainThread& main_thread,
              Handlers handlers, LogReaderTiming timing = {});
    ~LogReader(); // stops, without waiting for the loop
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;

    // Delivers the whole file and then what is added to it. While a loop runs, it is stopped and the file delivered
    // anew.
    void follow();

    void stop();

    [[nodiscard]] bool is_following() const { return m_run != nullptr; }

private:
    class Source;
    class Run;

    DispatchQueueSerial& m_queue;
    std::shared_ptr<Source> m_source; // shared with the loops, which the queue runs one after the other
    std::shared_ptr<Handlers> m_handlers;
    std::shared_ptr<Run> m_run; // null: stopped
};

} // namespace tickervantage
