// The server list's file, seen from the main thread: reading and saving happen on the queue, answers come back.
//
// Of several saves that wait only the newest is written. A save that was asked for is carried out even when this object
// goes, but its answer is dropped then. Main thread only; queue and main thread outlive it, and the queue ends before
// the main thread.
#pragma once

#include "base/dispatch.h"
#include "base/shared_text.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tickervantage {

using ServerListSaved = Result<std::string>; // as SharedText::replace has it

class ServerListFile {
public:
    ServerListFile(std::shared_ptr<SharedText> file, DispatchQueueSerial& queue, MainThread& main_thread);

    void read(std::function<void(const FileReading& reading)> done);
    // `made_from` as SharedText has it.
    void save(std::string text, std::optional<std::string> made_from,
              std::function<void(const ServerListSaved& saved)> done);

    // Waits until what was asked for is on the disk: for the program's end. False when the time does not suffice.
    [[nodiscard]] bool finish(std::chrono::milliseconds patience);

private:
    struct State;

    DispatchQueueSerial& m_queue;
    MainThread& m_main_thread;
    std::shared_ptr<SharedText> m_file;
    std::shared_ptr<State> m_state;
};

} // namespace tickervantage
