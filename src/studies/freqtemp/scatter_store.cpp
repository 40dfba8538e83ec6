#include "studies/freqtemp/scatter_store.h"

#include "base/failure_codes.h"
#include "base/logger.h"
#include "studies/freqtemp/scatter_json.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t LARGEST_FILE = std::size_t{4} << 30U; // 50 sensors of a million points
constexpr std::string_view FILE_NAME = "/scattermap.json";
constexpr std::string_view OLD_NAME = "/scattermap.txt"; // an older form of the map that is no longer read

// The path of the older file in the same folder; empty where the map has a name of the user's own.
std::string old_map(std::string_view path) {
    if (!path.ends_with(FILE_NAME))
        return {};
    path.remove_suffix(FILE_NAME.size());
    return std::string(path).append(OLD_NAME);
}

} // namespace

ScatterStore::ScatterStore(UserFiles& files, Logger& logger, DispatchQueueSerial& queue, std::string path)
    : m_files(files), m_logger(logger), m_queue(queue), m_path(std::move(path)) {}

std::optional<ScatterMap> ScatterStore::load() {
    if (m_path.empty())
        return std::nullopt;
    const FileReading file = m_files.read(m_path, LARGEST_FILE);
    if (file.outcome == FileReading::Outcome::missing)
        return std::nullopt;
    auto map = map_in(file);
    if (map)
        return *std::move(map);
    keep_aside(map.error());
    return std::nullopt;
}

Result<ScatterMap> ScatterStore::map_in(const FileReading& file) const {
    if (file.outcome == FileReading::Outcome::read)
        return read_scatter_json(file.bytes);
    return failed(FailureCode::cannot_read, {m_path}, file.reason);
}

void ScatterStore::keep_aside(const Failure& failure) {
    const auto kept_as = m_files.set_aside(m_path);
    const std::string reason = english(failure);
    m_logger.log(LogLevel::warning,
                 kept_as
                     ? fmt::format("The scatter map {} cannot be used and was kept as {}: {}", m_path, *kept_as, reason)
                     : fmt::format("The scatter map {} cannot be used and will not be written: {} {}", m_path, reason,
                                   english(kept_as.error())));
    const std::lock_guard lock(m_mutex);
    m_is_locked = !kept_as;
}

void ScatterStore::request_save(ScatterMap map) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_path.empty() || m_is_locked)
            return;
        m_waiting = std::move(map);
    }
    m_queue.async([self = shared_from_this()] { self->write_waiting(); });
}

void ScatterStore::write_waiting() {
    std::unique_lock lock(m_mutex);
    m_written.wait(lock, [this] { return !m_is_writing; });
    if (!m_waiting)
        return;
    const ScatterMap map = *std::exchange(m_waiting, std::nullopt);
    m_is_writing = true;
    lock.unlock();
    write(map);
    lock.lock();
    m_is_writing = false;
    m_written.notify_all();
}

// A map without entries would keep every sensor out for good, since none is added to a map that is stored.
void ScatterStore::remove_empty() {
    if (const auto stored = map_in(m_files.read(m_path, LARGEST_FILE)); stored && stored->empty())
        m_files.remove(m_path);
}

void ScatterStore::write(const ScatterMap& map) {
    if (map.empty())
        return remove_empty();
    if (const auto old = old_map(m_path); !old.empty())
        m_files.remove(old);
    const auto saved = m_files.replace(m_path, [&map](const TextSink& sink) { return write_scatter_json(map, sink); });
    if (!saved)
        m_logger.log(LogLevel::warning, "The scatter map was not saved. " + english(saved.error()));
}

void ScatterStore::finish() {
    write_waiting();
}

} // namespace tickervantage
