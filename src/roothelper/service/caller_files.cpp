#include "roothelper/service/caller_files.h"

#include "base/failure_codes.h"
#include "base/failure_line.h"
#include "linux/file_descriptor.h"
#include "roothelper/service/trusted_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>
#include <optional>

namespace tickervantage {
namespace {

constexpr std::string_view prefix = "item-";

constexpr std::chrono::seconds patience{2};

int refuse(FailureCode why) {
    (void)write_all(STDOUT_FILENO, to_line({.code = why})); // the status alone says no, too
    return source_refused_status;
}

std::optional<FailureCode> fault_of(const struct stat& status, uid_t caller, std::size_t limit) {
    if (!S_ISREG(status.st_mode))
        return FailureCode::source_is_no_file;
    if (status.st_uid != caller && status.st_uid != 0)
        return FailureCode::source_of_others;
    if (status.st_uid == caller && status.st_nlink != 1)
        return FailureCode::source_with_names;
    return static_cast<std::size_t>(status.st_size) > limit ? std::optional(FailureCode::source_too_large)
                                                            : std::nullopt;
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

int read_source(const ChildTask& task) {
    const FileDescriptor file(
        ::open(task.argv.front().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.valid() || ::fstat(file.get(), &status) != 0)
        return refuse(FailureCode::source_not_opened);
    const auto fault = fault_of(status, task.identity->user, task.output_limit);
    return fault ? refuse(*fault) : copy_out(file.get(), task.output_limit);
}

} // namespace

std::string stage_file(const std::string& folder, std::string_view bytes) {
    static unsigned count = 0;
    auto path = folder + '/' + std::string(prefix) + std::to_string(++count);
    if (write_new_file(path, bytes, 0644) == 0)
        return path;
    ::unlink(path.c_str()); // half a file must not be installed
    return {};
}

void remove_staged_files(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
    if (!listing)
        return;
    while (const auto* entry = ::readdir(listing.get())) // NOLINT(concurrency-mt-unsafe): the helper has one thread
        if (std::string_view(entry->d_name).starts_with(prefix))
            ::unlinkat(::dirfd(listing.get()), entry->d_name, 0);
}

ChildTask read_source_task(const std::string& path, const ChildIdentity& caller, std::size_t limit) {
    ChildTask task;
    task.argv = {path};
    task.body = read_source;
    task.identity = caller;
    task.time_limit = patience;
    task.output_limit = limit;
    return task;
}

} // namespace tickervantage
