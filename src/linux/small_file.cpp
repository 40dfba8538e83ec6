#include "linux/small_file.h"

#include "base/failure_codes.h"
#include "linux/file_descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <zlib.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <vector>

namespace tickervantage {

namespace {

constexpr mode_t permission_bits = 07777;

std::string folder_of(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

// -1 with errno, also when the file grew beyond the limit meanwhile.
int read_all(int fd, std::size_t limit, std::string& bytes) {
    std::array<char, 16384> buffer{};
    while (true) {
        const ssize_t got = ::read(fd, buffer.data(), buffer.size());
        if (got == 0)
            return 0;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return -1;
        bytes.append(buffer.data(), static_cast<std::size_t>(got));
        if (bytes.size() > limit) {
            errno = EFBIG;
            return -1;
        }
    }
}

// What root makes in a user's folder belongs to the user, who could not change it later otherwise.
void give_to_owner_of(const std::string& folder, int fd) {
    struct stat owner {};
    if (::geteuid() == 0 && ::stat(folder.c_str(), &owner) == 0 && ::fchown(fd, owner.st_uid, owner.st_gid) != 0)
        return; // stays with root: better than no file
}

int take_over_owner_and_mode(int fd, const std::string& path) {
    struct stat old {};
    if (::stat(path.c_str(), &old) != 0) {
        if (errno != ENOENT)
            return -1;
        give_to_owner_of(folder_of(path), fd);
        return 0;
    }
    struct stat now {};
    if (::fstat(fd, &now) != 0)
        return -1;
    const bool other_owner = old.st_uid != now.st_uid || old.st_gid != now.st_gid;
    if (other_owner && ::fchown(fd, old.st_uid, old.st_gid) != 0)
        return -1;
    return ::fchmod(fd, old.st_mode & permission_bits);
}

// What was handed to the kernel, in short.
struct Written {
    std::uint64_t size = 0;
    uLong checksum = crc32(0, nullptr, 0);

    void add(std::string_view bytes) {
        size += bytes.size();
        checksum = crc32_z(checksum, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    }
    friend bool operator==(const Written&, const Written&) = default;
};

bool reads_back(int fd, const Written& written) {
    if (::lseek(fd, 0, SEEK_SET) != 0)
        return false;
    Written found;
    std::vector<char> buffer(1U << 18U);
    while (true) {
        const ssize_t got = ::read(fd, buffer.data(), buffer.size());
        if (got == 0)
            return found == written;
        if (got < 0 && errno != EINTR)
            return false;
        if (got > 0)
            found.add({buffer.data(), static_cast<std::size_t>(got)});
    }
}

int write_draft(Draft& draft, const std::string& path, const WriteText& write, mode_t new_file) {
    if (draft.open(new_file) != 0 || take_over_owner_and_mode(draft.get(), path) != 0)
        return -1;
    Written written;
    errno = ECANCELED; // unless a call to the kernel fails, it was the writer that gave up
    const auto sink = [&](std::string_view bytes) {
        written.add(bytes);
        return write_all(draft.get(), bytes);
    };
    if (write(sink) != 0 || ::fsync(draft.get()) != 0)
        return -1;
    if (reads_back(draft.get(), written))
        return 0;
    errno = EIO;
    return -1;
}

int rename_without_replacing(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    struct stat there {};
    if (errno != EINVAL || ::lstat(to.c_str(), &there) == 0) // EINVAL: the file system cannot promise it
        return -1;
    return ::rename(from.c_str(), to.c_str());
}

std::string time_stamp() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return fmt::format("{:%Y%m%d-%H%M%S}", local);
}

FileReading unfit(FailureCode code, std::vector<std::string> arguments = {}) {
    return {.outcome = FileReading::Outcome::unfit, .reason = {.code = code, .arguments = std::move(arguments)}};
}

FileReading unreadable(Failure reason) {
    return {.outcome = FileReading::Outcome::unreadable, .reason = std::move(reason)};
}

} // namespace

FileReading read_small_file(const std::string& path, std::size_t limit) {
    using Outcome = FileReading::Outcome;
    const FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)); // a pipe must not hold us up
    if (!fd.valid())
        return {.outcome = errno == ENOENT ? Outcome::missing : Outcome::unreadable, .reason = system_failure(errno)};
    struct stat status {};
    if (::fstat(fd.get(), &status) != 0)
        return unreadable(system_failure(errno));
    if (S_ISDIR(status.st_mode))
        return unfit(FailureCode::is_folder);
    if (!S_ISREG(status.st_mode))
        return unreadable({.code = FailureCode::is_no_ordinary_file});
    FileReading file{.outcome = Outcome::read};
    if (read_all(fd.get(), limit, file.bytes) == 0)
        return file;
    return errno == EFBIG ? unfit(FailureCode::is_larger_than, {std::to_string(limit)})
                          : unreadable(system_failure(errno));
}

Result<> replace_file(const std::string& path, const WriteText& write, mode_t new_file) {
    Draft draft(AT_FDCWD, path);
    if (write_draft(draft, path, write, new_file) != 0 || draft.put_in_place() != 0)
        return failed(FailureCode::cannot_write, {path}, errno);
    const FileDescriptor folder(::open(folder_of(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.valid() || flush_folder(folder.get()) != 0)
        return failed(FailureCode::cannot_flush_folder, {path}, errno);
    return {};
}

Result<> replace_small_file(const std::string& path, std::string_view bytes, mode_t new_file) {
    return replace_file(
        path, [bytes](const TextSink& sink) { return sink(bytes); }, new_file);
}

Result<std::string> set_file_aside(const std::string& path) {
    const std::string name = path + ".damaged-" + time_stamp();
    for (int number = 1; number <= 100; ++number) {
        auto candidate = number == 1 ? name : fmt::format("{}-{}", name, number);
        if (rename_without_replacing(path, candidate) == 0)
            return candidate;
        if (errno != EEXIST)
            break;
    }
    return failed(FailureCode::cannot_rename, {path}, errno);
}

Result<> make_private_folder(const std::string& path) {
    struct stat there {};
    if (::stat(path.c_str(), &there) == 0) {
        if (S_ISDIR(there.st_mode))
            return {};
        return failed(FailureCode::cannot_make_folder, {path}, ENOTDIR);
    }
    const std::string parent = folder_of(path);
    if (parent != path)
        if (auto made = make_private_folder(parent); !made)
            return made;
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
        return failed(FailureCode::cannot_make_folder, {path}, errno);
    const FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (fd.valid())
        give_to_owner_of(parent, fd.get());
    return {};
}

Result<> FileLock::lock(const std::string& path, std::chrono::milliseconds time_limit) {
    const std::string name = beside(path, ".lock");
    FileDescriptor file(::open(name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, PRIVATE_FILE));
    if (!file.valid())
        return failed(FailureCode::cannot_lock, {path}, errno);
    give_to_owner_of(folder_of(path), file.get());
    const auto end = std::chrono::steady_clock::now() + time_limit;
    while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno == ENOLCK || errno == EOPNOTSUPP)
            break;
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= end)
            return failed(FailureCode::cannot_lock, {path}, errno);
        ::poll(nullptr, 0, 5); // the kernel has no lock with a deadline
    }
    m_file = std::move(file);
    return {};
}

} // namespace tickervantage
