#include "roothelper/service/history.h"

#include "linux/file_descriptor.h"
#include "roothelper/service/journal.h"
#include "roothelper/service/trusted_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <memory>

namespace tickervantage {
namespace {

constexpr std::size_t largest_text = std::size_t{1} << 20U;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::vector<std::string> names_in(const std::string& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) // NOLINT(concurrency-mt-unsafe): one thread
        if (entry->d_name[0] != '.')
            names.emplace_back(entry->d_name);
    return names;
}

std::vector<HistoryEntry> entries_in(const std::string& folder) {
    std::vector<HistoryEntry> entries;
    for (const auto& name : names_in(folder))
        if (const auto entry = parse_history_name(name))
            entries.push_back(*entry);
    std::ranges::sort(entries, {}, &HistoryEntry::number);
    return entries;
}

bool make_folders(const std::string& folder) {
    if (::mkdir(folder.c_str(), 0755) == 0 || errno == EEXIST)
        return true;
    return errno == ENOENT && make_folders(parent_folder(folder)) && ::mkdir(folder.c_str(), 0755) == 0;
}

bool flush(const std::string& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.valid() && ::fsync(file.get()) == 0;
}

// Whoever may not read a configuration must not find it here either.
unsigned mode_beside(const std::string& configuration) {
    struct stat status {};
    const bool is_open = ::stat(configuration.c_str(), &status) == 0 && (status.st_mode & S_IROTH) != 0;
    return is_open ? 0644 : 0600;
}

bool put(const std::string& path, std::string_view text, unsigned mode) {
    const auto folder = parent_folder(path);
    const auto draft = folder + "/.new";
    return make_folders(folder) && write_new_file(draft, text, mode) == 0 && flush(draft) &&
           ::rename(draft.c_str(), path.c_str()) == 0 && flush(folder);
}

// One that others can change is none of ours.
FileBytes installed_text(const std::string& configuration) {
    return read_roots_file(configuration, largest_text).value_or(FileBytes());
}

} // namespace

std::string History::folder_of(const std::string& configuration) const {
    return m_folder + '/' + history_folder_of(configuration);
}

std::string History::text_of(const std::string& folder, const HistoryEntry& entry) const {
    return bytes_of_roots_file(folder + '/' + history_name(entry), largest_text);
}

void History::add(const std::string& configuration, const Entries& entries, HistoryEntry entry,
                  std::string_view text) const {
    const auto folder = folder_of(configuration);
    entry.number = entries.empty() ? 1 : entries.back().number + 1;
    entry.seconds = ::time(nullptr);
    if (!put(folder + '/' + history_name(entry), text, mode_beside(configuration)))
        return journal_note("The configuration could not be kept in " + folder + ".");
    for (std::size_t at = 0; at + longest_history < entries.size() + 1; ++at)
        ::unlink((folder + '/' + history_name(entries[at])).c_str());
}

void History::before(const std::string& configuration) const {
    const auto folder = folder_of(configuration);
    const auto entries = entries_in(folder);
    const auto text = installed_text(configuration);
    if (text && (entries.empty() || text_of(folder, entries.back()) != text))
        add(configuration, entries, {.reason = HistoryReason::found}, *text);
}

void History::after(const std::string& configuration, std::uint32_t user) const {
    const auto folder = folder_of(configuration);
    const auto entries = entries_in(folder);
    const auto text = installed_text(configuration);
    if (!text || (!entries.empty() && text_of(folder, entries.back()) == text))
        return;
    const bool was_there =
        std::ranges::any_of(entries, [&](const auto& entry) { return text_of(folder, entry) == text; });
    add(configuration, entries,
        {.user = user, .reason = was_there ? HistoryReason::rolled_back : HistoryReason::installed}, *text);
}

void History::remove() const {
    for (const auto& name : names_in(m_folder)) {
        const auto folder = m_folder + '/' + name;
        for (const auto& entry : entries_in(folder))
            ::unlink((folder + '/' + history_name(entry)).c_str());
        ::rmdir(folder.c_str());
    }
    ::rmdir(m_folder.c_str());
    ::rmdir(parent_folder(m_folder).c_str());
}

} // namespace tickervantage
