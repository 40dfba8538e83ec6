// The scatter map's file: read once, then written again and again, each time with the newest map.
//
// Saves run on a queue, one at a time; of maps that come while one is being written only the last is written next.
// What goes wrong costs a sentence in the log and nothing else. A file that cannot be used is kept under another name;
// one that cannot even be renamed is never written over. A map without entries is not written, and a file that holds
// one is removed. request_save() and finish() on the main thread.
#pragma once

#include "base/dispatch.h"
#include "base/user_files.h"
#include "studies/freqtemp/scatter_map.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tickervantage {

class Logger;

class ScatterStore : public std::enable_shared_from_this<ScatterStore> {
public:
    // `path` empty: nothing is read or written. All others outlive the store's work.
    ScatterStore(UserFiles& files, Logger& logger, DispatchQueueSerial& queue, std::string path);

    // None: no map is stored. Waits for the disk; before the first save.
    [[nodiscard]] std::optional<ScatterMap> load();

    void request_save(ScatterMap map); // a snapshot

    // Waits until everything requested is written, and writes what no queue has begun.
    void finish();

private:
    void write_waiting();
    void write(const ScatterMap& map);
    void remove_empty();
    [[nodiscard]] Result<ScatterMap> map_in(const FileReading& file) const;
    void keep_aside(const Failure& failure);

    UserFiles& m_files;
    Logger& m_logger;
    DispatchQueueSerial& m_queue;
    const std::string m_path;

    std::mutex m_mutex; // guards what follows
    std::condition_variable m_written;
    std::optional<ScatterMap> m_waiting;
    bool m_is_writing = false;
    bool m_is_locked = false; // the file must stay as it is
};

} // namespace tickervantage
