#include "linux/posix_path_probes.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <vector>

namespace tickervantage {
namespace {

struct User {
    uid_t id = 0;
    std::vector<gid_t> groups;
};

constexpr mode_t may_read = 4;
constexpr mode_t may_write = 2;
constexpr mode_t may_enter = 1;

std::optional<User> user_named(const std::string& name) {
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 16384> texts{};
    if (getpwnam_r(name.c_str(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr)
        return std::nullopt;
    User user{.id = entry.pw_uid, .groups = std::vector<gid_t>(64)};
    int count = static_cast<int>(user.groups.size());
    (void)getgrouplist(name.c_str(), entry.pw_gid, user.groups.data(), &count); // more groups than that: the first ones
    user.groups.resize(std::min(user.groups.size(), static_cast<std::size_t>(count)));
    return user;
}

bool allows(const struct stat& status, const User& user, mode_t wanted) {
    if (user.id == 0)
        return true;
    unsigned shift = 0;
    if (status.st_uid == user.id)
        shift = 6;
    else if (std::ranges::find(user.groups, status.st_gid) != user.groups.end())
        shift = 3;
    return (status.st_mode >> shift & wanted) == wanted;
}

bool may_reach(const std::filesystem::path& path, const User& user) {
    for (auto folder = path.parent_path();; folder = folder.parent_path()) {
        struct stat status {};
        if (::stat(folder.c_str(), &status) == 0 && !allows(status, user, may_enter))
            return false;
        if (folder == folder.parent_path())
            return true;
    }
}

PathFacts::Kind kind_of(mode_t mode) {
    if (S_ISREG(mode))
        return PathFacts::Kind::file;
    if (S_ISDIR(mode))
        return PathFacts::Kind::folder;
    return S_ISCHR(mode) || S_ISBLK(mode) ? PathFacts::Kind::device : PathFacts::Kind::other;
}

} // namespace

PathState PosixPathProbes::state(const std::string& path) const {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return PathState::nothing;
    if (S_ISDIR(status.st_mode))
        return PathState::folder;
    const bool runs = S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
    return runs ? PathState::program : PathState::file;
}

PathFacts PosixPathProbes::look(const std::string& path, const std::string& user) const {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        const bool is_missing = errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
        return {.kind = is_missing ? PathFacts::Kind::missing : PathFacts::Kind::unknown};
    }
    PathFacts facts{.kind = kind_of(status.st_mode)};
    const auto who = user_named(user);
    if (!who)
        return facts;
    const bool reaches = may_reach(path, *who);
    facts.readable = reaches && allows(status, *who, may_read);
    facts.writable = reaches && allows(status, *who, may_write);
    return facts;
}

bool PosixPathProbes::user_exists(const std::string& user) const {
    return user_named(user).has_value();
}

} // namespace tickervantage
