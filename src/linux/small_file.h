// Small files of the user that must never be lost: whole reads with a limit, replacement in one step, keeping aside.
//
// A replaced file is at every moment, also after a crash or on a full disk, either the old one or the new one. Results
// are 0, or -1 and one sentence. These functions wait for the disk; any thread.
#pragma once

#include "base/user_files.h"
#include "linux/file_descriptor.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

struct SmallFile {
    enum class Outcome : unsigned char {
        read,
        missing,
        unfit,      // a folder, or larger than the limit: nothing that we wrote
        unreadable, // permissions, a broken disk, a device
    };
    Outcome outcome = Outcome::missing;
    std::string bytes;  // with `read`
    std::string reason; // otherwise: words that fit after a colon
};

[[nodiscard]] SmallFile read_small_file(const std::string& path, std::size_t limit);

// Writes beside, compares what was written, flushes, renames over. Mode and owner of a file that is there are kept; a
// new one is readable by its owner only. Callers that race with others hold a FileLock. The one failure that leaves the
// new file in place is that of flushing its folder: then a power cut may still bring the old one back.
[[nodiscard]] int replace_small_file(const std::string& path, std::string_view bytes, std::string& sentence);

// The same for a text of any size, which `write` hands over piece by piece; -1 from it leaves the old file.
[[nodiscard]] int replace_file(const std::string& path, const std::function<int(const TextSink&)>& write,
                               std::string& sentence);

// Renames the file or folder to "<path>.damaged-YYYYMMDD-HHMMSS" (local time), with a number behind it rather than
// over an earlier one.
[[nodiscard]] int set_file_aside(const std::string& path, std::string& kept_as, std::string& sentence);

// Makes the folder with those above it, for its owner only.
[[nodiscard]] int make_private_folder(const std::string& path, std::string& sentence);

// Keeps other processes (and other locks of this one) away from a file, through an empty file beside it. The kernel
// gives the lock back however the process ends. On file systems without locks it holds nothing off.
class FileLock {
public:
    [[nodiscard]] int lock(const std::string& path, std::chrono::milliseconds time_limit, std::string& sentence);

private:
    FileDescriptor m_file;
};

} // namespace tickervantage
