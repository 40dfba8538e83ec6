#include "linux/shared_text_file.h"

#include "base/failure_codes.h"
#include "base/utf8.h"
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

FileReading SharedTextFile::read() {
    FileReading file = read_small_file(m_path, m_limit);
    if (file.outcome == FileReading::Outcome::read && !is_plain_utf8(file.bytes))
        return {.outcome = FileReading::Outcome::unfit, .reason = {.code = FailureCode::is_no_utf8}};
    return file;
}

Result<std::string> SharedTextFile::keep_other(std::string_view text,
                                               const std::optional<std::string>& made_from) const {
    const FileReading file = read_small_file(m_path, m_limit);
    switch (file.outcome) {
    case FileReading::Outcome::missing:
        return {};
    case FileReading::Outcome::unfit:
        return set_file_aside(m_path);
    case FileReading::Outcome::unreadable:
        return failed(FailureCode::cannot_read, {m_path}, file.reason);
    case FileReading::Outcome::read:
        break;
    }
    if (file.bytes == text || file.bytes == made_from || file.bytes == m_written)
        return {};
    auto name = free_name(m_path);
    return replace_small_file(name, file.bytes).map([&] { return std::move(name); });
}

Result<std::string> SharedTextFile::replace(std::string_view text, const std::optional<std::string>& made_from) {
    FileLock lock;
    auto kept_as = make_private_folder(std::filesystem::path(m_path).parent_path().string())
                       .and_then([&] { return lock.lock(m_path, lock_patience); })
                       .and_then([&] { return keep_other(text, made_from); });
    if (!kept_as)
        return kept_as;
    const auto done = replace_small_file(m_path, text);
    if (done || read_small_file(m_path, m_limit).bytes == text) // the second: in place, but not flushed for sure
        m_written = text;
    return done ? kept_as : tl::unexpected(done.error());
}

} // namespace tickervantage
