#include "roothelper/support/install_file.h"

#include "base/failure_codes.h"
#include "linux/draft.h"
#include "linux/file_descriptor.h"
#include "roothelper/support/accounts.h"
#include "roothelper/support/folders.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace tickervantage {
namespace {

constexpr off_t largest_file = off_t{64} << 20U;
using Buffer = std::array<char, 65536>;

Result<mode_t> read_mode(const std::string& text) {
    constexpr mode_t never = 07022; // set-id bits, the sticky bit, writing by group and others
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 8);
    if (text.size() != 4 || error != std::errc() || end != text.data() + text.size() || (number & never) != 0)
        return failed(FailureCode::no_mode_of_roots, {text});
    return number;
}

struct Source {
    FileDescriptor file;
    off_t size = 0;
};

Result<Source> open_source(const std::string& path) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file.valid() || ::fstat(file.get(), &status) != 0)
        return failed(FailureCode::cannot_read, {path}, errno);
    if (!S_ISREG(status.st_mode))
        return failed(FailureCode::cannot_install, {path}, Failure{.code = FailureCode::is_no_ordinary_file});
    if (status.st_size > largest_file)
        return failed(FailureCode::cannot_install, {path}, EFBIG);
    return Source{std::move(file), status.st_size};
}

ssize_t read_some(int fd, char* to, std::size_t size) {
    ssize_t got = -1;
    do
        got = ::read(fd, to, size);
    while (got < 0 && errno == EINTR);
    return got;
}

// Fills the buffer as far as the file goes.
ssize_t read_full(int fd, Buffer& buffer) {
    std::size_t have = 0;
    while (have < buffer.size()) {
        const ssize_t got = read_some(fd, buffer.data() + have, buffer.size() - have);
        if (got < 0)
            return -1;
        if (got == 0)
            break;
        have += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(have);
}

// -1 with errno; a source that has another length than `expected` is being written just now.
int copy(int from, int to, off_t expected) {
    Buffer buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    off_t copied = 0;
    ssize_t got = 0;
    while (copied <= expected && (got = read_some(from, buffer.data(), buffer.size())) > 0) {
        if (write_all(to, {buffer.data(), static_cast<std::size_t>(got)}) != 0)
            return -1;
        copied += got;
    }
    if (got < 0)
        return -1;
    errno = ETXTBSY;
    return copied == expected ? 0 : -1;
}

bool same_bytes(int one, int other) {
    Buffer first;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    Buffer second; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    if (::lseek(one, 0, SEEK_SET) != 0 || ::lseek(other, 0, SEEK_SET) != 0)
        return false;
    while (true) {
        const ssize_t got = read_full(one, first);
        if (got < 0 || read_full(other, second) != got ||
            std::memcmp(first.data(), second.data(), static_cast<std::size_t>(got)) != 0)
            return false;
        if (got == 0)
            return true;
    }
}

// Held until the descriptor is closed, so also a killed run gives it back.
Result<FileDescriptor> lock_folder(const Place& place) {
    FileDescriptor folder(::openat(place.folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.valid())
        return failed(FailureCode::cannot_lock_folder, {place.path}, errno);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (::flock(folder.get(), LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= end)
            return failed(FailureCode::cannot_lock_folder, {place.path}, errno);
        ::poll(nullptr, 0, 10); // the kernel has no lock with a deadline
    }
    return folder;
}

bool is_something_else(const Place& place, const std::string& name) {
    struct stat there {};
    return ::fstatat(place.folder.get(), name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 && !S_ISREG(there.st_mode);
}

struct Destination {
    Place place;
    FileDescriptor lock;
};

// The folder of a destination, only ours and locked; the destination is missing or an ordinary file.
Result<Destination> open_destination(const std::string& path, const PathRules& rules) {
    auto place = open_place(path, rules, Missing::refuse);
    if (!place)
        return tl::unexpected(place.error());
    if (!place->folder.valid())
        return failed(FailureCode::cannot_install, {path}, ENOENT);
    auto lock = require_own_folder(*place, rules).and_then([&] { return lock_folder(*place); });
    if (!lock)
        return tl::unexpected(lock.error());
    if (is_something_else(*place, place->name))
        return failed(FailureCode::no_ordinary_file_there, {path});
    return Destination{*std::move(place), *std::move(lock)};
}

struct OwnerAndMode {
    Account owner;
    mode_t mode;
};

// -1 with errno.
int write_draft(Draft& draft, int source, off_t size, const OwnerAndMode& wanted) {
    const auto& [owner, mode] = wanted;
    return draft.open() == 0 && copy(source, draft.get(), size) == 0 &&
                   ::fchown(draft.get(), owner.uid, owner.gid) == 0 && ::fchmod(draft.get(), mode) == 0 &&
                   ::fsync(draft.get()) == 0
               ? 0
               : -1;
}

bool is_kept(const std::string& name) {
    return name.ends_with(".conf") || name.ends_with(".tempcomp");
}

// Keeps the file that is about to be replaced under a second name. The same bytes again replace nothing: what came
// before them stays the former one.
int keep_former(const Place& place, int replacement) {
    const int folder = place.folder.get();
    const FileDescriptor present(::openat(folder, place.name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!present.valid())
        return errno == ENOENT ? 0 : -1;
    if (same_bytes(present.get(), replacement))
        return 0;
    const std::string former = place.name + ".former";
    const std::string draft = beside(former, ".new");
    ::unlinkat(folder, draft.c_str(), 0);
    return ::linkat(folder, place.name.c_str(), folder, draft.c_str(), 0) == 0
               ? ::renameat(folder, draft.c_str(), folder, former.c_str())
               : -1;
}

} // namespace

Result<> install_file(const Installation& what, const PathRules& rules) {
    const auto owner = find_owner(what.owner);
    if (!owner)
        return tl::unexpected(owner.error());
    const auto mode = read_mode(what.mode);
    if (!mode)
        return tl::unexpected(mode.error());
    const auto source = open_source(what.source);
    if (!source)
        return tl::unexpected(source.error());
    const auto destination = open_destination(what.destination, rules);
    if (!destination)
        return tl::unexpected(destination.error());
    const Place& place = destination->place;
    Draft draft(place.folder.get(), place.name);
    if (write_draft(draft, source->file.get(), source->size, {*owner, *mode}) != 0)
        return failed(FailureCode::cannot_write, {what.destination}, errno);
    if (is_kept(place.name) && keep_former(place, draft.get()) != 0)
        return failed(FailureCode::cannot_keep_former, {what.destination}, errno);
    if (draft.put_in_place() != 0)
        return failed(FailureCode::cannot_replace, {what.destination}, errno);
    return flush_folder_of(place);
}

Result<> install_text(const std::string& path, std::string_view text, const PathRules& rules) {
    const FileDescriptor source(::memfd_create("text", MFD_CLOEXEC));
    if (!source.valid() || write_all(source.get(), text) != 0 || ::lseek(source.get(), 0, SEEK_SET) != 0)
        return failed(FailureCode::cannot_write, {path}, errno);
    const auto destination =
        make_folder(path.substr(0, path.rfind('/')), rules).and_then([&] { return open_destination(path, rules); });
    if (!destination)
        return tl::unexpected(destination.error());
    Draft draft(destination->place.folder.get(), destination->place.name);
    const OwnerAndMode roots{{rules.self, ::getegid()}, 0644};
    if (write_draft(draft, source.get(), static_cast<off_t>(text.size()), roots) != 0 || draft.put_in_place() != 0)
        return failed(FailureCode::cannot_write, {path}, errno);
    return flush_folder_of(destination->place);
}

bool same_files(const std::string& one, const std::string& other) {
    const FileDescriptor first(::open(one.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const FileDescriptor second(::open(other.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return first.valid() && second.valid() && same_bytes(first.get(), second.get());
}

Result<> restore_former(const std::string& destination, const PathRules& rules) {
    const auto there = open_destination(destination, rules);
    if (!there)
        return tl::unexpected(there.error());
    const Place& place = there->place;
    const std::string former = place.name + ".former";
    if (is_something_else(place, former))
        return failed(FailureCode::no_ordinary_file_there, {destination + ".former"});
    if (::renameat(place.folder.get(), former.c_str(), place.folder.get(), place.name.c_str()) != 0)
        return failed(FailureCode::cannot_restore_former, {destination}, errno);
    return flush_folder_of(place);
}

} // namespace tickervantage
