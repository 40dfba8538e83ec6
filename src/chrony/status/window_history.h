// The window's side of the history: hands over what was read and done to a queue of its own, and never waits for it.
//
// Main thread only. On a disk that does not keep up some readings are left out rather than hoarded. When the program
// ends what takes long is broken off: the next program goes on with it.
#pragma once

#include "base/background.h"
#include "base/broadcast.h"
#include "chrony/status/kept_readings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tickervantage {

// Posted, with the path as a std::string, whenever the window's history has grown.
inline constexpr const char* history_grew_key = "net.brisklane.tickervantage.history_grew";

struct WindowHistoryParts {
    DispatchQueueSerial& queue; // for nothing else
    MainThread& main_thread;
    Broadcast& broadcast;
    Logger& logger;
    // When something begins to go wrong, and, without a failure, when it has passed.
    std::function<void(const std::optional<Failure>& failure)> problem;
};

class WindowHistory {
public:
    // What the parts name outlives the queue, and the queue may outlive this.
    WindowHistory(const std::string& path, WindowHistoryParts parts);
    ~WindowHistory() { m_kept->stop(); }
    WindowHistory(const WindowHistory&) = delete;
    WindowHistory& operator=(const WindowHistory&) = delete;

    void keep(std::shared_ptr<const ClockTruth> truth, std::int64_t now); // read at `now`, s since 1970
    void keep(HistoryEvent event);

private:
    template <typename Work>
    void start(Work work);
    void tell(const Result<bool>& has_grown);

    WindowHistoryParts m_parts;
    std::string m_path;
    std::shared_ptr<KeptReadings> m_kept; // used on the queue
    int m_waiting = 0;                    // pieces of work that have not come home
    std::optional<Failure> m_told;
    Background m_background;
};

} // namespace tickervantage
