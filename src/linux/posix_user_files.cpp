#include "linux/posix_user_files.h"

#include "linux/small_file.h"

#include <chrono>
#include <filesystem>
#include <system_error>

namespace tickervantage {

FileReading PosixFiles::read(const std::string& path, std::size_t limit) {
    return read_small_file(path, limit);
}

Result<> PosixFiles::replace(const std::string& path, const WriteText& write) {
    return replace_file(path, write);
}

FileReading PosixUserFiles::read(const std::string& path, std::size_t limit) {
    return read_small_file(path, limit);
}

Result<> PosixUserFiles::replace(const std::string& path, const WriteText& write) {
    constexpr std::chrono::seconds patience{5};
    FileLock lock;
    const auto folder = std::filesystem::path(path).parent_path().string();
    return (folder.empty() ? Result<>() : make_private_folder(folder))
        .and_then([&] { return lock.lock(path, patience); })
        .and_then([&] { return replace_file(path, write); });
}

Result<std::string> PosixUserFiles::set_aside(const std::string& path) {
    return set_file_aside(path);
}

void PosixUserFiles::remove(const std::string& path) {
    std::error_code ignored; // nobody needs the file any more, whether it goes or stays
    std::filesystem::remove(path, ignored);
}

} // namespace tickervantage
