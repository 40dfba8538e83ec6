#include "roothelper/support/folders.h"

#include "chrony/configuration/configuration.h"
#include "roothelper/support/accounts.h"

#include <fcntl.h>

#include <fmt/format.h>

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

int owner_of_daemon_folder(const std::string& path, const std::vector<std::string>& configurations,
                           const PathRules& rules, Account& owner, std::string& sentence) {
    for (const auto& file : configurations) {
        Configuration configuration;
        configuration.load(file);
        if (!names_folder(configuration, path))
            continue;
        const auto user = configuration.value("user");
        const auto account = user ? find_account(*user) : usual_account(rules);
        if (!account) {
            sentence = fmt::format("There is no user {}, to whom {} would belong.", *user, path);
            return -1;
        }
        owner = *account;
        return 0;
    }
    owner = ours(rules);
    return 0;
}

// Under another name first, so that no run that was killed leaves a folder of the wrong owner.
int make_finished(const Place& place, const Account& owner, mode_t mode, std::string& sentence) {
    const int folder = place.folder.get();
    const std::string draft = "." + place.name + ".new";
    ::unlinkat(folder, draft.c_str(), AT_REMOVEDIR); // left over from a run that was killed
    const bool made = ::mkdirat(folder, draft.c_str(), 0700) == 0 &&
                      (owner.uid == ::geteuid() || ::fchownat(folder, draft.c_str(), owner.uid, owner.gid, 0) == 0) &&
                      ::fchmodat(folder, draft.c_str(), mode, 0) == 0 &&
                      ::renameat2(folder, draft.c_str(), folder, place.name.c_str(), RENAME_NOREPLACE) == 0;
    if (made)
        return flush_folder_of(place, sentence);
    const int error = errno;
    ::unlinkat(folder, draft.c_str(), AT_REMOVEDIR);
    return error == EEXIST ? 0 : fail_with(sentence, "Cannot make the folder", place.path, error);
}

int make_with_owner(const std::string& path, const Account& owner, mode_t mode, const PathRules& rules,
                    std::string& sentence) {
    Place place;
    if (open_place(path, rules, Missing::create, place, sentence) != 0)
        return -1;
    struct stat there {};
    if (::fstatat(place.folder.get(), place.name.c_str(), &there, 0) == 0)
        return S_ISDIR(there.st_mode) ? 0 : fail_with(sentence, "Cannot make the folder", path, ENOTDIR);
    if (require_own_folder(place, rules, sentence) != 0)
        return -1;
    return make_finished(place, owner, mode, sentence);
}

} // namespace

int make_folder(const std::string& path, const PathRules& rules, std::string& sentence) {
    return make_with_owner(path, ours(rules), for_everybody, rules, sentence);
}

int make_daemon_folder(const std::string& path, const std::vector<std::string>& configurations, const PathRules& rules,
                       std::string& sentence) {
    Account owner;
    if (owner_of_daemon_folder(path, configurations, rules, owner, sentence) != 0)
        return -1;
    const bool logs = path.starts_with("/var/log/");
    return make_with_owner(path, owner, logs ? for_everybody : for_the_daemon, rules, sentence);
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

int remove_item(const std::string& path, const PathRules& rules, std::string& sentence) {
    Place place;
    if (open_place(path, rules, Missing::refuse, place, sentence) != 0)
        return -1;
    if (!place.folder.valid())
        return 0;
    const bool only_ours = rules.only_ours(place.folder_status);
    if (!only_ours && place.folder_status.st_uid == 0)
        return require_own_folder(place, rules, sentence);
    const InTheNameOf owner(place.folder_status);
    if (owner.done() && ::unlinkat(place.folder.get(), place.name.c_str(), 0) == 0)
        return only_ours ? flush_folder_of(place, sentence) : 0;
    return errno == ENOENT ? 0 : fail_with(sentence, "Cannot remove", path, errno);
}

} // namespace tickervantage
