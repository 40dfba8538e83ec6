// Small files of the user that must never be lost: whole reads with a limit, replacement in one step, keeping aside.
//
// A replaced file is at every moment, also after a crash or on a full disk, either the old one or the new one. These
// functions wait for the disk; any thread.
#pragma once

#include "base/user_files.h"
#include "linux/draft.h"
#include "linux/file_descriptor.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace tickervantage {

[[nodiscard]] FileReading read_small_file(const std::string& path, std::size_t limit);

// Writes beside, compares what was written, flushes, renames over. Mode and owner of a file that is there are kept; a
// new one has the mode given, less what the umask takes: usually only its owner may read it. Callers that race with
// others hold a FileLock. The one failure that leaves the new file in place is that of flushing its folder: then a
// power cut may still bring the old one back.
[[nodiscard]] Result<> replace_small_file(const std::string& path, std::string_view bytes,
                                          mode_t new_file = PRIVATE_FILE);

// The same for a text of any size; when `write` gives up, the old file stays.
[[nodiscard]] Result<> replace_file(const std::string& path, const WriteText& write, mode_t new_file = PRIVATE_FILE);

// Renames the file or folder to "<path>.damaged-YYYYMMDD-HHMMSS" (local time), with a number behind it rather than
// over an earlier one. The new name.
[[nodiscard]] Result<std::string> set_file_aside(const std::string& path);

// Makes the folder with those above it, for its owner only.
[[nodiscard]] Result<> make_private_folder(const std::string& path);

// Keeps other processes (and other locks of this one) away from a file, through an empty file beside it. The kernel
// gives the lock back however the process ends. On file systems without locks it holds nothing off.
class FileLock {
public:
    [[nodiscard]] Result<> lock(const std::string& path, std::chrono::milliseconds time_limit);

private:
    FileDescriptor m_file;
};

} // namespace tickervantage
