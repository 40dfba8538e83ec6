#include "linux/private_temporary.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <vector>

namespace tickervantage {
namespace {

constexpr const char* prefix = "tickervantage-";
constexpr const char* lock_name = "/lock";

bool is_own_folder(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == getuid();
}

// The runtime folder belongs to the user alone; one that others may write is none.
bool is_runtime_folder(const std::string& path) {
    struct stat info {};
    return path.starts_with('/') && is_own_folder(path) && stat(path.c_str(), &info) == 0 &&
           (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

void remove_tree(const std::string& path) {
    std::error_code ignored; // what cannot be removed now, the next run tries again
    (void)std::filesystem::remove_all(path, ignored);
}

// The lock of a folder, when nobody else holds it and the folder was not removed meanwhile.
FileDescriptor take_lock(const std::string& folder, int flags) {
    FileDescriptor lock(open((folder + lock_name).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags, 0600));
    struct stat info {};
    if (!lock.valid() || flock(lock.get(), LOCK_EX | LOCK_NB) != 0 || fstat(lock.get(), &info) != 0 ||
        info.st_nlink == 0)
        lock.reset();
    return lock;
}

// A folder without a lock may be one that another run is making at this moment.
bool is_old_and_unlocked(const std::string& folder) {
    constexpr std::time_t surely_finished = 60;
    struct stat info {};
    return access((folder + lock_name).c_str(), F_OK) != 0 && lstat(folder.c_str(), &info) == 0 &&
           std::time(nullptr) - info.st_mtime > surely_finished;
}

void remove_stale(const std::string& base) {
    std::vector<std::string> candidates;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(base, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().filename().string().starts_with(prefix) && is_own_folder(entry->path()))
            candidates.push_back(entry->path());
    for (const auto& folder : candidates) {
        const auto lock = take_lock(folder, 0);
        if (lock.valid() || is_old_and_unlocked(folder))
            remove_tree(folder);
    }
}

} // namespace

PrivateTemporary::PrivateTemporary(const EnvironmentLookup& environment, const std::string& second_choice) {
    std::vector<std::string> bases{second_choice};
    const auto runtime = environment("XDG_RUNTIME_DIR");
    if (runtime && is_runtime_folder(*runtime))
        bases.insert(bases.begin(), *runtime);
    for (const auto& base : bases)
        remove_stale(base);
    for (const auto& base : bases)
        if (!m_lock.valid() && make_in(base) == 0)
            m_problem.clear();
    (void)setenv("TMPDIR", m_path.c_str(), 1); // NOLINT(concurrency-mt-unsafe): before there are threads
}

PrivateTemporary::~PrivateTemporary() {
    if (m_lock.valid())
        remove_tree(m_path.substr(0, m_path.size() - 1));
}

int PrivateTemporary::make_in(const std::string& base) {
    constexpr int attempts = 3; // another run's clean-up may catch a folder before its lock is taken
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::string folder = base + "/" + prefix + "XXXXXX";
        const bool made = mkdtemp(folder.data()) != nullptr;
        m_lock = made ? take_lock(folder, O_CREAT) : FileDescriptor();
        if (m_lock.valid()) {
            m_path = folder + "/";
            return 0;
        }
        m_problem = "No private temporary folder can be made in " + base + ": " +
                    std::generic_category().message(errno) + "; /tmp is used.";
        if (made)
            remove_tree(folder);
    }
    return -1;
}

} // namespace tickervantage
