// The files that a log of chrony consists of: the one that is written, those that were rotated away, compressed ones
// too. What a file holds is told by its banner or by the shape of its records, never by its name.
//
// Calls wait for the disk: on a queue.
#pragma once

#include "base/followed_file.h"
#include "chrony/log/log_kinds.h"
#include "chrony/log/log_pieces.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct LogFile {
    std::string path;
    std::optional<LogKind> kind; // none: nothing in it tells
};

// The files named and those in the folders named, in the order in which they were written: tracking.log.2.gz before
// tracking.log.1 before tracking.log, and dates as they follow each other. Of a folder only files that are logs. Fails
// where there is no such file or it cannot be read.
[[nodiscard]] Result<std::vector<LogFile>> find_logs(FollowedFiles& files, const std::vector<std::string>& paths);

// Those of one kind, and files named in which nothing tells another; fails where there is none.
[[nodiscard]] Result<std::vector<LogFile>> find_logs(FollowedFiles& files, const std::vector<std::string>& paths,
                                                     LogKind kind);

// The same of files that were found already; `named` stands for them in the failure.
[[nodiscard]] Result<std::vector<LogFile>> of_kind(std::vector<LogFile> logs, const std::string& named, LogKind kind);

// Into the order in which the files were written, by their names.
void sort_by_rotation(std::vector<std::string>& paths);

// What was read of a file.
struct LogCount {
    std::size_t records = 0;
    std::size_t odd = 0; // lines that are neither a record nor a banner
};

// Hands all lines but banners to `take`, which says whether it is a record. Fails for what cannot be read to its end;
// then the lines before that were handed out.
using TakeRecord = std::function<bool(std::string_view line, std::size_t number)>;
[[nodiscard]] Result<> read_records(FollowedFiles& files, const std::string& path, LogCount& count,
                                    const TakeRecord& take);

// The same of what the log gained since the tail, with the answers of read_log_on().
[[nodiscard]] Result<bool> read_records_on(FollowedFiles& files, const std::string& path, LogTail& tail,
                                           LogCount& count, const TakeRecord& take);

// That lines were left out, to be told once; none where there were none.
[[nodiscard]] std::optional<Failure> odd_lines(const std::string& path, const LogCount& count);

} // namespace tickervantage
