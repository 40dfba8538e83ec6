// Files that nobody but root can have changed, and how root writes such files.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Whether this path, links resolved, and every folder above it belong to root and can be written by nobody else.
[[nodiscard]] bool is_roots_own(const std::string& path);

[[nodiscard]] bool file_exists(const std::string& path);

// The path without its last name; "/" at the top.
[[nodiscard]] std::string parent_folder(const std::string& path);

// A file's bytes; none where there is no such file.
using FileBytes = std::optional<std::string>;

// A failure also for one that is larger than the limit.
[[nodiscard]] Result<FileBytes> read_file(const std::string& path, std::size_t limit);

// The same for one that must be root's own.
[[nodiscard]] Result<FileBytes> read_roots_file(const std::string& path, std::size_t limit);

// The same where it makes no difference whether there is no such file, or one that others can change: then empty.
[[nodiscard]] std::string bytes_of_roots_file(const std::string& path, std::size_t limit);

// The files that match a pattern of glob(7), links resolved; none outside chrony's folders in /etc, since in others
// somebody else may keep root waiting.
[[nodiscard]] std::vector<std::string> matching_roots_files(const std::string& pattern);

// Makes a file anew, with this mode whatever the mask, in a folder that only root can write to. -1: errno says why.
[[nodiscard]] int write_new_file(const std::string& path, std::string_view bytes, unsigned mode);

} // namespace tickervantage
