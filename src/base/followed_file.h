// Files that others write while we read them: asked for by name, read from any place, and able to fail at every step.
//
// Results are 0, or -1 and words that fit after a colon. Offsets and sizes are in bytes of the text, also where the
// file holds it compressed. A file is used by one thread at a time; calls may wait for the disk.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tickervantage {

struct FileStatus {
    std::uint64_t device = 0;
    std::uint64_t inode = 0; // 0: none
    std::uint64_t size = 0;  // of the file itself

    [[nodiscard]] bool is_same_file(const FileStatus& other) const {
        return device == other.device && inode == other.inode;
    }
    friend bool operator==(const FileStatus&, const FileStatus&) = default;
};

class FollowedFile {
public:
    using GoOn = std::function<bool()>;

    virtual ~FollowedFile() = default;

    // The length of the text as it is now. A compressed file is read through for it, unless `go_on` says no: then the
    // result is -1 without a reason. 0 with a reason: the file is damaged behind that length.
    [[nodiscard]] virtual int length(const GoOn& go_on, std::uint64_t& bytes, std::optional<Failure>& reason) = 0;

    // Fills the buffer from the offset; `count` is smaller than the buffer only at the end of the text.
    [[nodiscard]] virtual int read(std::uint64_t offset, std::span<char> buffer, std::size_t& count,
                                   std::optional<Failure>& reason) = 0;
};

class FollowedFiles {
public:
    enum class Found : unsigned char { file, nothing, unreadable };

    virtual ~FollowedFiles() = default;

    // `reason` goes with `unreadable`.
    [[nodiscard]] virtual Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) = 0;

    // The names of the ordinary files in a folder, in any order. None: it is no folder that can be read.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> names_in(const std::string& /*folder*/) {
        return std::nullopt;
    }

    // The status is that of the opened file, whatever bears its name meanwhile.
    [[nodiscard]] virtual int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
                                   std::optional<Failure>& reason) = 0;
};

} // namespace tickervantage
