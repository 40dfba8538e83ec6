#include "roothelper/support/folders.h"

#include "base/failure_codes.h"
#include "chrony/configuration/configuration.h"
#include "roothelper/support/accounts.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

constexpr mode_t for_everybody = 0755;
constexpr mode_t for_the_daemon = 0750;

// Takes on another user's rights to files until the end of the block. Only root can; for others it changes nothing.
class InTheNameOf {
public:
    explicit InTheNameOf(const struct stat& folder) : m_changes(::geteuid() == 0 && folder.st_uid != 0) {
        m_done = !m_changes || (::setegid(folder.st_gid) == 0 && ::seteuid(folder.st_uid) == 0);
    }
    ~InTheNameOf() {
        if (m_changes && (::seteuid(0) != 0 || ::setegid(0) != 0))
            std::abort(); // going on with half an identity would do who knows what
    }
    InTheNameOf(const InTheNameOf&) = delete;
    InTheNameOf& operator=(const InTheNameOf&) = delete;

    [[nodiscard]] bool done() const { return m_done; }

private:
    bool m_changes;
    bool m_done;
};

std::string without_slash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

bool names_folder(const Configuration& configuration, const std::string& path) {
    constexpr std::array directives{"logdir", "dumpdir", "ntsdumpdir"};
    return std::ranges::any_of(directives, [&](const char* directive) {
        const auto value = configuration.value(directive);
        return value && without_slash(*value) == without_slash(path);
    });
}

Account ours(const PathRules& rules) {
    return {rules.self, ::getegid()};
}

// The user that chronyd takes on by itself, as the distributions build it.
Account usual_account(const PathRules& rules) {
    for (const char* name : {"_chrony", "chrony"})
        if (const auto account = find_account(name))
            return *account;
    return ours(rules);
}

Result<Account> owner_of_daemon_folder(const std::string& path, const std::vector<std::string>& configurations,
                                       const PathRules& rules) {
    for (const auto& file : configurations) {
        Configuration configuration;
        configuration.load(file);
        if (!names_folder(configuration, path))
            continue;
        const auto user = configuration.value("user");
        const auto account = user ? find_account(*user) : usual_account(rules);
        return account ? Result<Account>(*account) : failed(FailureCode::no_such_folder_owner, {*user, path});
    }
    return ours(rules);
}

// Under another name first, so that no run that was killed leaves a folder of the wrong owner.
Result<> make_finished(const Place& place, const Account& owner, mode_t mode) {
    const int folder = place.folder.get();
    const std::string draft = "." + place.name + ".new";
    ::unlinkat(folder, draft.c_str(), AT_REMOVEDIR); // left over from a run that was killed
    const bool made = ::mkdirat(folder, draft.c_str(), 0700) == 0 &&
                      (owner.uid == ::geteuid() || ::fchownat(folder, draft.c_str(), owner.uid, owner.gid, 0) == 0) &&
                      ::fchmodat(folder, draft.c_str(), mode, 0) == 0 &&
                      ::renameat2(folder, draft.c_str(), folder, place.name.c_str(), RENAME_NOREPLACE) == 0;
    if (made)
        return flush_folder_of(place);
    const int error = errno;
    ::unlinkat(folder, draft.c_str(), AT_REMOVEDIR);
    return error == EEXIST ? Result<>() : failed(FailureCode::cannot_make_folder, {place.path}, error);
}

Result<> make_with_owner(const std::string& path, const Account& owner, mode_t mode, const PathRules& rules) {
    const auto place = open_place(path, rules, Missing::create);
    if (!place)
        return tl::unexpected(place.error());
    struct stat there {};
    if (::fstatat(place->folder.get(), place->name.c_str(), &there, 0) == 0)
        return S_ISDIR(there.st_mode) ? Result<>() : failed(FailureCode::cannot_make_folder, {path}, ENOTDIR);
    return require_own_folder(*place, rules).and_then([&] { return make_finished(*place, owner, mode); });
}

} // namespace

Result<> make_folder(const std::string& path, const PathRules& rules) {
    return make_with_owner(path, ours(rules), for_everybody, rules);
}

Result<> make_daemon_folder(const std::string& path, const std::vector<std::string>& configurations,
                            const PathRules& rules) {
    const auto mode = path.starts_with("/var/log/") ? for_everybody : for_the_daemon;
    return owner_of_daemon_folder(path, configurations, rules).and_then([&](const Account& owner) {
        return make_with_owner(path, owner, mode, rules);
    });
}

std::vector<std::string> installed_configurations() {
    std::vector<std::pair<fs::file_time_type, std::string>> found;
    std::error_code error;
    const auto add = [&](const fs::path& file) {
        if (const auto time = fs::last_write_time(file, error); !error)
            found.emplace_back(time, file.string());
    };
    add("/etc/chrony.conf");
    for (const auto* folder : {"/etc/chrony.d", "/etc/chrony"})
        for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
            if (file->path().extension() == ".conf")
                add(file->path());
    std::ranges::sort(found, std::ranges::greater());
    std::vector<std::string> files;
    files.reserve(found.size());
    for (auto& [time, file] : found)
        files.push_back(std::move(file));
    return files;
}

Result<> remove_item(const std::string& path, const PathRules& rules) {
    const auto place = open_place(path, rules, Missing::refuse);
    if (!place)
        return tl::unexpected(place.error());
    if (!place->folder.valid())
        return {};
    const bool only_ours = rules.only_ours(place->folder_status);
    if (!only_ours && place->folder_status.st_uid == 0)
        return require_own_folder(*place, rules);
    const InTheNameOf owner(place->folder_status);
    if (owner.done() && ::unlinkat(place->folder.get(), place->name.c_str(), 0) == 0)
        return only_ours ? flush_folder_of(*place) : Result<>();
    return errno == ENOENT ? Result<>() : failed(FailureCode::cannot_remove, {path}, errno);
}

} // namespace tickervantage
