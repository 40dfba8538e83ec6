#include "linux/posix_user_files.h"

#include "linux/small_file.h"

#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tickervantage {

UserFiles::Found PosixUserFiles::read(const std::string& path, std::size_t limit, std::string& text,
                                      std::string& sentence) {
    SmallFile file = read_small_file(path, limit);
    if (file.outcome == SmallFile::Outcome::read) {
        text = std::move(file.bytes);
        return Found::text;
    }
    sentence = fmt::format("Cannot read {}: {}.", path, file.reason);
    switch (file.outcome) {
    case SmallFile::Outcome::missing:
        return Found::missing;
    case SmallFile::Outcome::unfit:
        return Found::unfit;
    default:
        return Found::unreadable;
    }
}

int PosixUserFiles::replace(const std::string& path, const std::function<int(const TextSink&)>& write,
                            std::string& sentence) {
    constexpr std::chrono::seconds patience{5};
    FileLock lock;
    const auto folder = std::filesystem::path(path).parent_path().string();
    if ((!folder.empty() && make_private_folder(folder, sentence) != 0) || lock.lock(path, patience, sentence) != 0)
        return -1;
    return replace_file(path, write, sentence);
}

int PosixUserFiles::set_aside(const std::string& path, std::string& kept_as, std::string& sentence) {
    return set_file_aside(path, kept_as, sentence);
}

void PosixUserFiles::remove(const std::string& path) {
    std::error_code ignored; // nobody needs the file any more, whether it goes or stays
    std::filesystem::remove(path, ignored);
}

} // namespace tickervantage
