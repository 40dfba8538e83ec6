#include "roothelper/support/path_rules.h"

#include <fcntl.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <deque>
#include <system_error>

namespace tickervantage {
namespace {

constexpr mode_t written_by_group_or_others = 022;

// One walk from the root folder down.
class Walk {
public:
    Walk(const PathRules& rules, Missing missing, const std::string& path, std::string& sentence)
        : m_rules(rules), m_missing(missing), m_path(path), m_sentence(sentence) {}

    [[nodiscard]] int go(std::deque<std::string> names, FileDescriptor& folder, struct stat& status) {
        m_left = std::move(names);
        if (enter(FileDescriptor(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC))) != 0)
            return -1;
        while (!m_left.empty() && m_current.valid()) {
            const auto name = m_left.front();
            m_left.pop_front();
            if (check_current() != 0 || step(name) != 0)
                return -1;
        }
        folder = std::move(m_current);
        status = m_status;
        return 0;
    }

private:
    [[nodiscard]] int fail(int error) const { return fail_with(m_sentence, "Cannot reach", m_path, error); }

    [[nodiscard]] int enter(FileDescriptor folder) {
        if (!folder.valid() || ::fstat(folder.get(), &m_status) != 0)
            return fail(errno);
        m_current = std::move(folder);
        return 0;
    }

    // Sticky folders of root: what others put there they can move, but not what is ours.
    [[nodiscard]] bool sticky() const { return m_status.st_uid == 0 && (m_status.st_mode & S_ISVTX) != 0; }

    [[nodiscard]] int check_current() const {
        if (m_rules.only_ours(m_status) || sticky())
            return 0;
        m_sentence = fmt::format("The way to {} leads through a folder that others can change.", m_path);
        return -1;
    }

    [[nodiscard]] int step(const std::string& name) {
        FileDescriptor next(::openat(m_current.get(), name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        if (!next.valid() && errno == ENOENT && m_missing == Missing::refuse) {
            m_current.reset();
            return 0;
        }
        if (!next.valid() && errno == ENOENT)
            return make(name);
        struct stat status {};
        if (!next.valid() || ::fstat(next.get(), &status) != 0)
            return fail(errno);
        if (S_ISLNK(status.st_mode))
            return follow(next.get(), status);
        return S_ISDIR(status.st_mode) ? enter(std::move(next)) : fail(ENOTDIR);
    }

    [[nodiscard]] int make(const std::string& name) {
        if (!m_rules.only_ours(m_status)) {
            m_sentence = fmt::format("No folder for {} is made where others can write.", m_path);
            return -1;
        }
        if (::mkdirat(m_current.get(), name.c_str(), 0755) != 0 && errno != EEXIST)
            return fail(errno);
        const FileDescriptor readable(::openat(m_current.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!readable.valid() || ::fsync(readable.get()) != 0)
            return fail(errno);
        return enter(
            FileDescriptor(::openat(m_current.get(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
    }

    [[nodiscard]] int follow(int link, const struct stat& status) {
        constexpr int most_links = 8;
        std::array<char, PATH_MAX> text{};
        if (++m_links > most_links)
            return fail(ELOOP);
        if (sticky() || (status.st_uid != 0 && status.st_uid != m_rules.self)) {
            m_sentence = fmt::format("The way to {} leads through a symbolic link that others made.", m_path);
            return -1;
        }
        const ssize_t length = ::readlinkat(link, "", text.data(), text.size());
        if (length <= 0 || static_cast<std::size_t>(length) == text.size())
            return fail(length < 0 ? errno : ENAMETOOLONG);
        return prepend({text.data(), static_cast<std::size_t>(length)});
    }

    [[nodiscard]] int prepend(const std::string& target) {
        std::deque<std::string> names;
        for (std::size_t at = 0; at < target.size();) {
            const auto end = std::min(target.find('/', at), target.size());
            if (end > at)
                names.push_back(target.substr(at, end - at));
            at = end + 1;
        }
        m_left.insert(m_left.begin(), names.begin(), names.end());
        return target.front() == '/' ? enter(FileDescriptor(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC))) : 0;
    }

    const PathRules& m_rules;
    Missing m_missing;
    const std::string& m_path;
    std::string& m_sentence;
    std::deque<std::string> m_left;
    FileDescriptor m_current;
    struct stat m_status {};
    int m_links = 0;
};

int refuse(std::string& sentence, const std::string& path) {
    sentence = fmt::format("{} is not a path that can be used here.", path);
    return -1;
}

} // namespace

bool PathRules::only_ours(const struct stat& status) const {
    if (status.st_uid != 0 && status.st_uid != self)
        return false;
    const bool group_is_roots = status.st_gid == 0 && (status.st_mode & S_IWOTH) == 0;
    return group_is_roots || (status.st_mode & written_by_group_or_others) == 0;
}

int split_path(const std::string& path, std::vector<std::string>& names, std::string& sentence) {
    const auto control = [](unsigned char c) {
        return c < 0x20 || c == 0x7f;
    };
    if (!path.starts_with('/') || path.size() >= PATH_MAX || std::ranges::any_of(path, control))
        return refuse(sentence, path.substr(0, 200));
    std::vector<std::string> found;
    for (std::size_t at = 1; at < path.size();) {
        const auto end = std::min(path.find('/', at), path.size());
        const auto name = path.substr(at, end - at);
        if (name == ".." || name.size() > NAME_MAX)
            return refuse(sentence, path.substr(0, 200));
        if (!name.empty() && name != ".")
            found.push_back(name);
        at = end + 1;
    }
    if (found.empty())
        return refuse(sentence, path);
    names = std::move(found);
    return 0;
}

int open_place(const std::string& path, const PathRules& rules, Missing missing, Place& place, std::string& sentence) {
    std::vector<std::string> names;
    if (split_path(path, names, sentence) != 0)
        return -1;
    place.path = path;
    place.name = names.back();
    return Walk(rules, missing, place.path, sentence)
        .go({names.begin(), names.end() - 1}, place.folder, place.folder_status);
}

int require_own_folder(const Place& place, const PathRules& rules, std::string& sentence) {
    if (rules.only_ours(place.folder_status))
        return 0;
    sentence = fmt::format("{} stays as it is: others can write to its folder.", place.path);
    return -1;
}

int flush_folder_of(const Place& place, std::string& sentence) {
    const FileDescriptor readable(::openat(place.folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (readable.valid() && (::fsync(readable.get()) == 0 || errno == EINVAL)) // EINVAL: there is no such thing here
        return 0;
    return fail_with(sentence, "Cannot flush the folder of", place.path, errno);
}

int fail_with(std::string& sentence, const char* what, const std::string& path, int error) {
    sentence = fmt::format("{} {}: {}.", what, path, std::generic_category().message(error));
    return -1;
}

} // namespace tickervantage
