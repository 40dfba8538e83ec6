#include "roothelper/support/path_rules.h"

#include "base/failure_codes.h"
#include "linux/draft.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <deque>

namespace tickervantage {
namespace {

constexpr mode_t written_by_group_or_others = 022;

// One walk from the root folder down.
class Walk {
public:
    Walk(const PathRules& rules, Missing missing, const std::string& path)
        : m_rules(rules), m_missing(missing), m_path(path) {}

    // To the folder that the last of the names lies in.
    [[nodiscard]] Result<Place> go(const std::vector<std::string>& names) {
        m_left = {names.begin(), names.end() - 1};
        auto done = enter_root();
        while (done && !m_left.empty() && m_current.valid()) {
            const auto name = m_left.front();
            m_left.pop_front();
            done = check_current().and_then([&] { return step(name); });
        }
        return done.map([&] {
            return Place{
                .folder = std::move(m_current), .folder_status = m_status, .name = names.back(), .path = m_path};
        });
    }

private:
    [[nodiscard]] Result<> fail(int error) const { return failed(FailureCode::cannot_reach, {m_path}, error); }

    [[nodiscard]] Result<> enter_root() { return enter(FileDescriptor(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC))); }

    [[nodiscard]] Result<> enter(FileDescriptor folder) {
        if (!folder.valid() || ::fstat(folder.get(), &m_status) != 0)
            return fail(errno);
        m_current = std::move(folder);
        return {};
    }

    // Sticky folders of root: what others put there they can move, but not what is ours.
    [[nodiscard]] bool sticky() const { return m_status.st_uid == 0 && (m_status.st_mode & S_ISVTX) != 0; }

    [[nodiscard]] Result<> check_current() const {
        return m_rules.only_ours(m_status) || sticky() ? Result<>() : failed(FailureCode::way_open_to_others, {m_path});
    }

    [[nodiscard]] Result<> step(const std::string& name) {
        FileDescriptor next(::openat(m_current.get(), name.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        if (!next.valid() && errno == ENOENT && m_missing == Missing::refuse) {
            m_current.reset();
            return {};
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

    [[nodiscard]] Result<> make(const std::string& name) {
        if (!m_rules.only_ours(m_status))
            return failed(FailureCode::no_folder_among_others, {m_path});
        if (::mkdirat(m_current.get(), name.c_str(), 0755) != 0 && errno != EEXIST)
            return fail(errno);
        const FileDescriptor readable(::openat(m_current.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!readable.valid() || ::fsync(readable.get()) != 0)
            return fail(errno);
        return enter(
            FileDescriptor(::openat(m_current.get(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
    }

    [[nodiscard]] Result<> follow(int link, const struct stat& status) {
        constexpr int most_links = 8;
        std::array<char, PATH_MAX> text{};
        if (++m_links > most_links)
            return fail(ELOOP);
        if (sticky() || (status.st_uid != 0 && status.st_uid != m_rules.self))
            return failed(FailureCode::way_through_link_of_others, {m_path});
        const ssize_t length = ::readlinkat(link, "", text.data(), text.size());
        if (length <= 0 || static_cast<std::size_t>(length) == text.size())
            return fail(length < 0 ? errno : ENAMETOOLONG);
        return prepend({text.data(), static_cast<std::size_t>(length)});
    }

    [[nodiscard]] Result<> prepend(const std::string& target) {
        std::deque<std::string> names;
        for (std::size_t at = 0; at < target.size();) {
            const auto end = std::min(target.find('/', at), target.size());
            if (end > at)
                names.push_back(target.substr(at, end - at));
            at = end + 1;
        }
        m_left.insert(m_left.begin(), names.begin(), names.end());
        return target.front() == '/' ? enter_root() : Result<>();
    }

    const PathRules& m_rules;
    Missing m_missing;
    const std::string& m_path;
    std::deque<std::string> m_left;
    FileDescriptor m_current;
    struct stat m_status {};
    int m_links = 0;
};

} // namespace

bool PathRules::only_ours(const struct stat& status) const {
    if (status.st_uid != 0 && status.st_uid != self)
        return false;
    const bool group_is_roots = status.st_gid == 0 && (status.st_mode & S_IWOTH) == 0;
    return group_is_roots || (status.st_mode & written_by_group_or_others) == 0;
}

Result<std::vector<std::string>> split_path(const std::string& path) {
    const auto control = [](unsigned char c) {
        return c < 0x20 || c == 0x7f;
    };
    const auto refused = failed(FailureCode::unusable_path, {path.substr(0, 200)});
    if (!path.starts_with('/') || path.size() >= PATH_MAX || std::ranges::any_of(path, control))
        return refused;
    std::vector<std::string> names;
    for (std::size_t at = 1; at < path.size();) {
        const auto end = std::min(path.find('/', at), path.size());
        const auto name = path.substr(at, end - at);
        if (name == ".." || name.size() > NAME_MAX)
            return refused;
        if (!name.empty() && name != ".")
            names.push_back(name);
        at = end + 1;
    }
    if (names.empty())
        return refused;
    return names;
}

Result<Place> open_place(const std::string& path, const PathRules& rules, Missing missing) {
    return split_path(path).and_then([&](const auto& names) { return Walk(rules, missing, path).go(names); });
}

Result<> require_own_folder(const Place& place, const PathRules& rules) {
    return rules.only_ours(place.folder_status) ? Result<>() : failed(FailureCode::folder_open_to_others, {place.path});
}

Result<> flush_folder_of(const Place& place) {
    if (flush_folder(place.folder.get()) != 0)
        return failed(FailureCode::cannot_flush_folder, {place.path}, errno);
    return {};
}

} // namespace tickervantage
