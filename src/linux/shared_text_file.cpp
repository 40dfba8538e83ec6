#include "linux/shared_text_file.h"

#include "base/setting_text.h"
#include "linux/small_file.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <ctime>
#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::chrono::seconds lock_patience{2};

// A name that is free; whoever holds the lock is the only one to take it.
std::string free_name(const std::string& path) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    const std::string name = fmt::format("{}.other-{:%Y%m%d-%H%M%S}", path, local);
    std::string candidate = name;
    std::error_code ignored; // a name that cannot be looked at cannot be written either, and that is told
    for (int number = 2; std::filesystem::exists(candidate, ignored); ++number)
        candidate = fmt::format("{}-{}", name, number);
    return candidate;
}

} // namespace

SharedTextFile::SharedTextFile(std::string path, std::size_t limit) : m_path(std::move(path)), m_limit(limit) {}

SharedTextReading SharedTextFile::read() {
    using Outcome = SharedTextReading::Outcome;
    SmallFile file = read_small_file(m_path, m_limit);
    switch (file.outcome) {
    case SmallFile::Outcome::missing:
        return {};
    case SmallFile::Outcome::unfit:
        return {Outcome::unfit, {}, file.reason};
    case SmallFile::Outcome::unreadable:
        return {Outcome::unreadable, {}, file.reason};
    default:
        break;
    }
    if (!is_plain_utf8(file.bytes))
        return {Outcome::unfit, {}, "it is no text in UTF-8"};
    return {Outcome::read, std::move(file.bytes), {}};
}

int SharedTextFile::keep_other(std::string_view text, const std::optional<std::string>& made_from, std::string& kept_as,
                               std::string& sentence) const {
    const SmallFile file = read_small_file(m_path, m_limit);
    switch (file.outcome) {
    case SmallFile::Outcome::missing:
        return 0;
    case SmallFile::Outcome::unfit:
        return set_file_aside(m_path, kept_as, sentence);
    case SmallFile::Outcome::unreadable:
        sentence = fmt::format("Cannot read {}: {}.", m_path, file.reason);
        return -1;
    default:
        break;
    }
    if (file.bytes == text || file.bytes == made_from || file.bytes == m_written)
        return 0;
    const std::string name = free_name(m_path);
    if (replace_small_file(name, file.bytes, sentence) != 0)
        return -1;
    kept_as = name;
    return 0;
}

int SharedTextFile::replace(std::string_view text, const std::optional<std::string>& made_from, std::string& kept_as,
                            std::string& sentence) {
    kept_as.clear();
    FileLock lock;
    if (make_private_folder(std::filesystem::path(m_path).parent_path().string(), sentence) != 0 ||
        lock.lock(m_path, lock_patience, sentence) != 0 || keep_other(text, made_from, kept_as, sentence) != 0)
        return -1;
    const int result = replace_small_file(m_path, text, sentence);
    if (result == 0 || read_small_file(m_path, m_limit).bytes == text) // the second: in place, but not flushed for sure
        m_written = text;
    return result;
}

} // namespace tickervantage
