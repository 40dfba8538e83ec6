#include "linux/posix_followed_file.h"

#include "base/failure_codes.h"
#include "linux/file_descriptor.h"
#include "linux/gz_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

int fail(std::optional<Failure>& reason, int error) {
    reason = system_failure(error);
    return -1;
}

FileStatus status_of(const struct stat& found) {
    return {found.st_dev, found.st_ino, static_cast<std::uint64_t>(found.st_size)};
}

int read_at(int fd, std::uint64_t offset, std::span<char> buffer, std::size_t& count, std::optional<Failure>& reason) {
    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t got = ::pread(fd, buffer.data() + done, buffer.size() - done, static_cast<off_t>(offset + done));
        if (got == 0)
            break;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return fail(reason, errno);
        done += static_cast<std::size_t>(got);
    }
    count = done;
    return 0;
}

class PlainFile : public FollowedFile {
public:
    explicit PlainFile(FileDescriptor fd) : m_fd(std::move(fd)) {}

    int length(const GoOn&, std::uint64_t& bytes, std::optional<Failure>& reason) override {
        struct stat found {};
        if (::fstat(m_fd.get(), &found) != 0)
            return fail(reason, errno);
        bytes = static_cast<std::uint64_t>(found.st_size);
        return 0;
    }
    int read(std::uint64_t offset, std::span<char> buffer, std::size_t& count,
             std::optional<Failure>& reason) override {
        return read_at(m_fd.get(), offset, buffer, count, reason);
    }

private:
    FileDescriptor m_fd;
};

bool is_compressed(int fd) {
    std::array<char, 2> start{};
    std::size_t count = 0;
    std::optional<Failure> reason;
    return read_at(fd, 0, start, count, reason) == 0 && count == 2 && start[0] == '\x1F' && start[1] == '\x8B';
}

} // namespace

FollowedFiles::Found PosixFollowedFiles::status(const std::string& name, FileStatus& status,
                                                std::optional<Failure>& reason) {
    struct stat found {};
    if (::stat(name.c_str(), &found) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return Found::nothing;
        (void)fail(reason, errno);
        return Found::unreadable;
    }
    status = status_of(found);
    return Found::file;
}

int PosixFollowedFiles::open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
                             std::optional<Failure>& reason) {
    FileDescriptor fd(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)); // a pipe must not hold us up
    struct stat found {};
    if (!fd.valid() || ::fstat(fd.get(), &found) != 0)
        return fail(reason, errno);
    if (!S_ISREG(found.st_mode)) {
        reason = Failure{.code = S_ISDIR(found.st_mode) ? FailureCode::is_folder : FailureCode::is_no_ordinary_file};
        return -1;
    }
    if (is_compressed(fd.get()))
        file = std::make_unique<GzFile>(std::move(fd));
    else
        file = std::make_unique<PlainFile>(std::move(fd));
    status = status_of(found);
    return 0;
}

} // namespace tickervantage
