#include "roothelper/service/trusted_files.h"

#include "base/failure_codes.h"
#include "linux/file_descriptor.h"

#include <fcntl.h>
#include <glob.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace tickervantage {
namespace {

bool only_root_writes(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || status.st_uid != 0)
        return false;
    const bool others = (status.st_mode & S_IWOTH) != 0;
    const bool group = (status.st_mode & S_IWGRP) != 0 && status.st_gid != 0;
    return !others && !group;
}

Result<std::string> read_all(const FileDescriptor& file, const std::string& path, std::size_t limit) {
    std::array<char, 16384> buffer{};
    std::string bytes;
    while (bytes.size() <= limit) {
        const ssize_t got = ::read(file.get(), buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return failed(FailureCode::cannot_read, {path}, errno);
        if (got == 0)
            return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return failed(FailureCode::cannot_read, {path}, EFBIG);
}

// `is_heeded` judges the open file.
template <class IsHeeded>
Result<FileBytes> read_if(const std::string& path, std::size_t limit, IsHeeded is_heeded) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.valid() && errno == ENOENT)
        return FileBytes();
    if (!file.valid())
        return failed(FailureCode::cannot_read, {path}, errno);
    if (!is_heeded(file))
        return failed(FailureCode::file_open_to_others, {path});
    return read_all(file, path, limit);
}

} // namespace

std::string parent_folder(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool file_exists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

bool is_roots_own(const std::string& path) {
    std::array<char, PATH_MAX> resolved{};
    if (::realpath(path.c_str(), resolved.data()) == nullptr)
        return false;
    std::string part = resolved.data();
    for (; part != "/"; part = parent_folder(part))
        if (!only_root_writes(part))
            return false;
    return only_root_writes(part);
}

Result<FileBytes> read_file(const std::string& path, std::size_t limit) {
    return read_if(path, limit, [](const FileDescriptor&) { return true; });
}

// Where the file that was opened lies, not what may meanwhile have come to lie at its path.
Result<FileBytes> read_roots_file(const std::string& path, std::size_t limit) {
    return read_if(path, limit, [](const FileDescriptor& file) {
        return is_roots_own("/proc/self/fd/" + std::to_string(file.get()));
    });
}

std::string bytes_of_roots_file(const std::string& path, std::size_t limit) {
    return read_roots_file(path, limit).value_or(FileBytes()).value_or("");
}

std::vector<std::string> matching_roots_files(const std::string& pattern) {
    std::vector<std::string> paths;
    if (!pattern.starts_with("/etc/chrony"))
        return paths;
    glob_t found{};
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only where a tilde stands for somebody's home
    if (::glob(pattern.c_str(), GLOB_NOSORT, nullptr, &found) == 0)
        for (std::size_t at = 0; at < found.gl_pathc; ++at) {
            std::array<char, PATH_MAX> resolved{};
            if (::realpath(found.gl_pathv[at], resolved.data()) != nullptr)
                paths.emplace_back(resolved.data());
        }
    ::globfree(&found);
    return paths;
}

int write_new_file(const std::string& path, std::string_view bytes, unsigned mode) {
    ::unlink(path.c_str());
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    return file.valid() && write_all(file.get(), bytes) == 0 && ::fchmod(file.get(), mode) == 0 ? 0 : -1;
}

} // namespace tickervantage
