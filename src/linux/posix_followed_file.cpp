#include "linux/posix_followed_file.h"

#include "base/failure_codes.h"
#include "linux/file_descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
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

constexpr unsigned step = 1U << 16U; // bytes between two looks at whether to go on
constexpr std::size_t kept_at_end = 1U << 20U;

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

std::optional<std::vector<std::string>> PosixFollowedFiles::names_in(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code unknown; // what cannot be looked at is none
        if (at->is_regular_file(unknown))
            names.push_back(at->path().filename().string());
    }
    return error ? std::nullopt : std::optional(std::move(names));
}

GzFile::GzFile(FileDescriptor fd) : m_fd(std::move(fd)) {}

GzFile::~GzFile() {
    if (m_stream != nullptr)
        (void)gzclose_r(m_stream); // nothing was written
}

int GzFile::start_over() {
    if (m_stream != nullptr)
        (void)gzclose_r(m_stream);
    m_at = 0;
    // The copy shares its place in the file, which closing the stream does not bring back.
    const int copy = ::fcntl(m_fd.get(), F_DUPFD_CLOEXEC, 0);
    m_stream = copy < 0 || ::lseek(copy, 0, SEEK_SET) < 0 ? nullptr : gzdopen(copy, "rb");
    if (m_stream != nullptr)
        (void)gzbuffer(m_stream, step);
    else if (copy >= 0)
        ::close(copy);
    return m_stream == nullptr ? -1 : 0;
}

void GzFile::keep(std::span<const char> read) {
    m_end.append(read.data(), read.size());
    if (m_end.size() > 2 * kept_at_end)
        m_end.erase(0, m_end.size() - kept_at_end);
}

int GzFile::measure(const GoOn& go_on) {
    m_end.clear();
    m_damage.reset();
    if (start_over() != 0)
        return -1;
    std::array<char, step> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by gzread
    while (go_on()) {
        const int got = gzread(m_stream, buffer.data(), step);
        if (got <= 0) {
            int error = Z_OK;
            const char* words = gzerror(m_stream, &error);
            if (got < 0 || error != Z_OK)
                m_damage =
                    error == Z_BUF_ERROR ? Failure{.code = FailureCode::its_end_is_missing} : said_by_others(words);
            m_length = m_at;
            return 0;
        }
        m_at += static_cast<std::uint64_t>(got);
        keep({buffer.data(), static_cast<std::size_t>(got)});
    }
    return -1;
}

int GzFile::length(const GoOn& go_on, std::uint64_t& bytes, std::optional<Failure>& reason) {
    struct stat found {};
    if (::fstat(m_fd.get(), &found) != 0) {
        reason = system_failure(errno);
        return -1;
    }
    if (const auto size = static_cast<std::uint64_t>(found.st_size); size != m_compressed) {
        m_compressed = 0;
        if (measure(go_on) != 0)
            return -1;
        m_compressed = size;
    }
    bytes = m_length;
    reason = m_damage;
    return 0;
}

int GzFile::read(std::uint64_t offset, std::span<char> buffer, std::size_t& count, std::optional<Failure>& reason) {
    count = 0;
    if (offset >= m_length)
        return 0;
    const std::uint64_t kept_from = m_length - m_end.size();
    if (offset >= kept_from) {
        count = std::min(buffer.size(), static_cast<std::size_t>(m_length - offset));
        m_end.copy(buffer.data(), count, static_cast<std::size_t>(offset - kept_from));
        return 0;
    }
    if ((m_stream == nullptr || m_at >= m_length) && start_over() != 0) {
        reason = Failure{.code = FailureCode::cannot_be_read_again};
        return -1;
    }
    if (m_at != offset && gzseek(m_stream, static_cast<z_off_t>(offset), SEEK_SET) < 0) {
        reason = Failure{.code = FailureCode::is_damaged};
        return -1;
    }
    m_at = offset;
    const auto wanted = static_cast<unsigned>(std::min<std::uint64_t>(buffer.size(), m_length - offset));
    const int got = gzread(m_stream, buffer.data(), wanted);
    if (got < 0) {
        reason = Failure{.code = FailureCode::is_damaged};
        return -1;
    }
    count = static_cast<std::size_t>(got);
    m_at += count;
    return 0;
}

} // namespace tickervantage
