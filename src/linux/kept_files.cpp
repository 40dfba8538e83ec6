#include "linux/kept_files.h"

#include "base/failure_codes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largest = 80U << 20U; // more than the largest document with what is told of it
constexpr const char* locked_name = "/run";

bool is_hidden(const fs::path& path) {
    return path.filename().string().starts_with('.');
}

std::vector<fs::path> entries(const std::string& folder) {
    std::vector<fs::path> found;
    std::error_code error; // a folder that is not there has no entries
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (!is_hidden(entry->path()))
            found.push_back(entry->path());
    return found;
}

fs::file_time_type changed_at(const fs::path& path) {
    std::error_code ignored; // then it counts as the oldest
    return fs::last_write_time(path, ignored);
}

void remove_if_empty(const std::string& folder) {
    std::error_code ignored; // the next run tries again
    if (!folder.empty() && entries(folder).empty())
        (void)fs::remove_all(folder, ignored); // with the lock's own file
}

} // namespace

PosixKeptFiles::~PosixKeptFiles() {
    remove_if_empty(m_own);
    for (const auto& taken : m_taken)
        remove_if_empty(taken.folder);
}

Result<> PosixKeptFiles::make_own() {
    std::string folder = m_folder + "/XXXXXX";
    if (m_folder.empty())
        return failed(FailureCode::no_folder_to_keep_in);
    if (auto made = make_private_folder(m_folder); !made)
        return made;
    if (::mkdtemp(folder.data()) == nullptr)
        return failed(FailureCode::cannot_make_folder_in, {m_folder}, errno);
    FileLock lock;
    if (auto locked = lock.lock(folder + locked_name, {}); !locked)
        return locked;
    m_lock = std::move(lock);
    m_own = std::move(folder);
    return {};
}

Result<> PosixKeptFiles::keep_once(const std::string& name, std::string_view bytes) {
    if (::access(m_own.c_str(), W_OK) != 0)
        if (auto made = make_own(); !made)
            return made;
    return replace_small_file(path_of(name), bytes);
}

// Twice: another run that starts may take a folder for an empty one before its lock is there.
Result<> PosixKeptFiles::keep(const std::string& name, std::string_view bytes) {
    return keep_once(name, bytes).or_else([&](const Failure&) { return keep_once(name, bytes); });
}

void PosixKeptFiles::drop(const std::string& name) {
    if (!m_own.empty())
        remove(path_of(name));
}

bool PosixKeptFiles::take(const std::string& folder) {
    if (folder == m_own)
        return false;
    if (std::ranges::find(m_taken, folder, &Taken::folder) != m_taken.end())
        return true;
    FileLock lock;
    if (!lock.lock(folder + locked_name, {})) // in use
        return false;
    if (entries(folder).empty())
        remove_if_empty(folder);
    else
        m_taken.push_back({folder, std::move(lock)});
    return true;
}

std::vector<LeftFile> PosixKeptFiles::left_behind() {
    std::vector<fs::path> files;
    for (const auto& folder : entries(m_folder))
        if (take(folder.string()))
            std::ranges::copy(entries(folder.string()), std::back_inserter(files));
    std::ranges::sort(files, {}, changed_at);
    std::vector<LeftFile> left;
    for (const auto& path : files)
        if (FileReading file = read_small_file(path.string(), largest); file.outcome == FileReading::Outcome::read)
            left.push_back({path.string(), std::move(file.bytes)});
    return left;
}

Result<> PosixKeptFiles::adopt(const std::string& path, const std::string& name) {
    if (m_own.empty())
        if (auto made = make_own(); !made)
            return made;
    if (std::rename(path.c_str(), path_of(name).c_str()) != 0)
        return failed(FailureCode::cannot_rename, {path}, errno);
    return {};
}

void PosixKeptFiles::remove(const std::string& path) {
    std::error_code ignored; // then it is offered once more
    (void)fs::remove(path, ignored);
}

} // namespace tickervantage
