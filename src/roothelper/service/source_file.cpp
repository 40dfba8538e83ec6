#include "roothelper/service/source_file.h"

#include "linux/write_all.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace tickervantage {
namespace {

constexpr std::chrono::seconds patience{2};

int refuse(std::string_view sentence) {
    (void)write_all(STDOUT_FILENO, sentence); // the status alone says no, too
    return source_refused_status;
}

std::string_view fault_of(const struct stat& status, uid_t caller, std::size_t limit) {
    if (!S_ISREG(status.st_mode))
        return "What is to be installed is not an ordinary file.";
    if (status.st_uid != caller && status.st_uid != 0)
        return "The file to be installed belongs to somebody else.";
    if (status.st_uid == caller && status.st_nlink != 1)
        return "The file to be installed has more than one name.";
    return static_cast<std::size_t>(status.st_size) > limit ? "The file to be installed is too large." : "";
}

int copy_out(int file, std::size_t limit) {
    std::array<char, 65536> buffer{};
    std::size_t total = 0;
    while (true) {
        const ssize_t got = ::read(file, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return got == 0 ? 0 : 1;
        total += static_cast<std::size_t>(got);
        if (total > limit || write_all(STDOUT_FILENO, {buffer.data(), static_cast<std::size_t>(got)}) != 0)
            return 1;
    }
}

int read_source(const std::string& path, uid_t caller, std::size_t limit) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.valid() || ::fstat(file.get(), &status) != 0)
        return refuse("The file to be installed cannot be opened by its user.");
    const auto fault = fault_of(status, caller, limit);
    return fault.empty() ? copy_out(file.get(), limit) : refuse(fault);
}

} // namespace

ChildTask read_source_task(const std::string& path, const ChildIdentity& caller, std::size_t limit) {
    ChildTask task;
    task.body = [path, user = caller.user, limit] {
        return read_source(path, user, limit);
    };
    task.identity = caller;
    task.time_limit = patience;
    task.output_limit = limit;
    return task;
}

} // namespace tickervantage
