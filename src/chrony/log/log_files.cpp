#include "chrony/log/log_files.h"

#include "base/failure_codes.h"
#include "base/number_text.h"
#include "chrony/log/log_line.h"
#include "chrony/log/log_pieces.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace tickervantage {
namespace {

bool is_digit(char one) {
    return one >= '0' && one <= '9';
}

// "tracking.log-20261121.gz" belongs to "tracking.log".
struct Rotation {
    std::string base;
    std::int64_t place = std::numeric_limits<std::int64_t>::max(); // rises with time; the file that is written is last
};

Rotation rotation_of(std::string_view path) {
    if (path.ends_with(".gz"))
        path.remove_suffix(3);
    std::size_t end = path.size();
    while (end > 0 && (is_digit(path[end - 1]) || path[end - 1] == '-'))
        --end;
    const bool has_dash = end < path.size() && path[end] == '-';
    const auto base_end = end > 0 && path[end - 1] == '.' ? end - 1 : end;
    std::string digits(path.substr(end));
    std::erase(digits, '-');
    const auto number = number_from_text<std::int64_t>(digits);
    if (!number || (base_end == end && !has_dash))
        return {.base = std::string(path)};
    constexpr std::int64_t first_date = 19700101; // smaller numbers count back from the newest
    return {.base = std::string(path.substr(0, base_end)), .place = *number < first_date ? -*number : *number};
}

// The first that tells decides.
std::optional<LogKind> kind_in(std::string_view head) {
    for (auto line = take_line(head); !line.empty(); line = take_line(head)) {
        if (const auto kind = kind_of_heading(line))
            return kind;
        if (const auto kind = kind_of_record(line))
            return kind;
    }
    return std::nullopt;
}

Result<std::optional<LogKind>> kind_of_file(FollowedFiles& files, const std::string& path) {
    std::unique_ptr<FollowedFile> file;
    FileStatus status;
    std::uint64_t length = 0;
    std::optional<Failure> reason;
    std::string head;
    if (files.open(path, file, status, reason) != 0 || file->length([] { return true; }, length, reason) != 0)
        return failed(FailureCode::file_unreadable, {path}, std::move(reason).value_or(Failure()));
    LogPieces pieces(*file, 0, length, LogPieces::Bytes::any);
    std::optional<LogKind> kind;
    while (!kind && pieces.next(head, reason) == LogPieces::Next::piece)
        kind = kind_in(head);
    return kind;
}

std::vector<std::string> files_named(FollowedFiles& files, const std::string& path, bool& is_folder) {
    const auto names = files.names_in(path);
    is_folder = names.has_value();
    if (!is_folder)
        return {path};
    std::vector<std::string> paths;
    for (const std::string& name : *names)
        paths.push_back(path + (path.ends_with('/') ? "" : "/") + name);
    return paths;
}

} // namespace

void sort_by_rotation(std::vector<std::string>& paths) {
    std::ranges::stable_sort(paths, {}, [](const std::string& path) {
        const Rotation rotation = rotation_of(path);
        return std::tuple(rotation.base, rotation.place);
    });
}

Result<std::vector<LogFile>> find_logs(FollowedFiles& files, const std::vector<std::string>& paths) {
    std::vector<std::string> named;
    std::vector<std::string> all;
    for (const std::string& path : paths) {
        bool is_folder = false;
        for (const std::string& file : files_named(files, path, is_folder)) {
            all.push_back(file);
            if (!is_folder)
                named.push_back(file);
        }
    }
    sort_by_rotation(all);
    // A file that is named besides its folder counts once. (clang 14 does not take libstdc++'s ranges::unique.)
    all.erase(std::unique(all.begin(), all.end()), all.end());
    std::vector<LogFile> logs;
    std::optional<Failure> unreadable; // of a folder: told where it leaves nothing
    for (const std::string& path : all) {
        const bool is_named = std::ranges::find(named, path) != named.end();
        const auto kind = kind_of_file(files, path);
        if (!kind && is_named)
            return tl::unexpected(kind.error());
        if (is_named || (kind && *kind))
            logs.push_back({path, kind.value_or(std::nullopt)});
        if (!kind)
            unreadable = kind.error();
    }
    if (logs.empty() && unreadable)
        return tl::unexpected(*unreadable);
    return logs;
}

Result<std::vector<LogFile>> of_kind(std::vector<LogFile> logs, const std::string& named, LogKind kind) {
    std::erase_if(logs, [&](const LogFile& log) { return log.kind.value_or(kind) != kind; });
    if (logs.empty())
        return failed(FailureCode::no_log_in, {named, std::string(shape_of(kind).name)});
    return logs;
}

Result<std::vector<LogFile>> find_logs(FollowedFiles& files, const std::vector<std::string>& paths, LogKind kind) {
    auto logs = find_logs(files, paths);
    return logs ? of_kind(std::move(*logs), paths.empty() ? "" : paths.front(), kind) : logs;
}

namespace {

// Hands what is no banner to `take`, and counts.
NumberedLine counted(LogCount& count, const TakeRecord& take) {
    return [&count, &take](std::string_view text, std::size_t number) {
        if (take(text, number))
            ++count.records;
        else if (!is_banner(text))
            ++count.odd;
    };
}

} // namespace

Result<> read_records(FollowedFiles& files, const std::string& path, LogCount& count, const TakeRecord& take) {
    return read_log(files, path, counted(count, take));
}

Result<bool> read_records_on(FollowedFiles& files, const std::string& path, LogTail& tail, LogCount& count,
                             const TakeRecord& take) {
    return read_log_on(files, path, tail, counted(count, take));
}

std::optional<Failure> odd_lines(const std::string& path, const LogCount& count) {
    if (count.odd == 0)
        return std::nullopt;
    return failed(FailureCode::odd_log_lines, {path, std::to_string(count.odd)}).value();
}

} // namespace tickervantage
