// The settings store of the program and of tickerctl: an INI file, read when the store is made, and again whenever
// another process changes it, for those who watch.
//
// Reading and writing through the store only touches memory. Changes go to the disk behind it, on the queue given,
// several at a time. A save that fails keeps its changes; the next one, or `finish`, tries again. Main thread only,
// except for the work that it hands to the queue. The logger must outlive the queue, the queue the store.
#pragma once

#include "base/dispatch.h"
#include "base/failure.h"
#include "base/logger.h"
#include "settings/default_settings.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class QFileSystemWatcher;

namespace tickervantage {

class QtSettingsStore : public SettingsStore {
public:
    using ProblemHandler = std::function<void(const Failure& failure)>;

    QtSettingsStore(const std::string& path, DispatchQueueSerial& queue, Logger& logger);
    ~QtSettingsStore() override;
    QtSettingsStore(const QtSettingsStore&) = delete;
    QtSettingsStore& operator=(const QtSettingsStore&) = delete;

    [[nodiscard]] std::optional<std::vector<std::string>> read(std::string_view key) const override;
    void write(std::string_view key,
               const std::vector<std::string>& value) override; // bytes that are no UTF-8 are replaced
    void remove(std::string_view key) override;

    // What was wrong with the file when it was read, and with the last save.
    [[nodiscard]] std::optional<Failure> load_problem() const;
    [[nodiscard]] std::optional<Failure> save_problem() const;

    // Calls the handler on the main thread with each new problem of a save. An empty handler ends that.
    void set_problem_handler(MainThread& main_thread, ProblemHandler handler);

    // From now on the values follow what others write into the file, and the handler is called on the main thread after
    // each such change. Needs an event loop.
    void watch(MainThread& main_thread, Work changed);

    // For the end of the program: blocks until every change is on the disk.
    [[nodiscard]] Result<> finish(std::chrono::milliseconds time_limit);

private:
    struct Shared;

    void watch_paths();
    void look_again();
    void change(std::string_view key, std::optional<std::vector<std::string>> value);
    void schedule();

    std::shared_ptr<Shared> m_shared; // with the work on the queue, which may come round after the store has gone
    DispatchQueueSerial& m_queue;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
    MainThread* m_watch_thread = nullptr;
};

} // namespace tickervantage
