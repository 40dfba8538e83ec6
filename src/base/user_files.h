// Files that must never be lost, of any size: whole reads with a limit, replacement in one step.
//
// A replaced file is at every moment, also after a crash or on a full disk, either the old one or the new one. Calls
// wait for the disk; any thread.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

// What was found where a file was looked for.
struct FileReading {
    enum class Outcome : unsigned char {
        read,
        missing,
        unfit,      // nothing that we wrote: a folder, larger than the limit
        unreadable, // permissions, a broken disk, a device
    };
    Outcome outcome = Outcome::missing;
    std::string bytes = {}; // with `read`
    Failure reason = {};    // otherwise: words that fit after a colon
};

// Takes the next piece of a text; -1: no more is wanted.
using TextSink = std::function<int(std::string_view)>;

// Hands a text to the sink piece by piece. -1: it gave up, or the sink did.
using WriteText = std::function<int(const TextSink&)>;

// Those that people name.
class Files {
public:
    virtual ~Files() = default;

    [[nodiscard]] virtual FileReading read(const std::string& path, std::size_t limit) = 0;

    // When `write` gives up, the old file stays.
    [[nodiscard]] virtual Result<> replace(const std::string& path, const WriteText& write) = 0;
    [[nodiscard]] Result<> replace_by(const std::string& path, std::string_view bytes) {
        return replace(path, [bytes](const TextSink& sink) { return sink(bytes); });
    }
};

// Those that the program keeps for the user: folders above them are made, and its other processes kept away meanwhile.
class UserFiles : public Files {
public:
    // Renames a file that cannot be used, so that the next replacement does not destroy it. The new name.
    [[nodiscard]] virtual Result<std::string> set_aside(const std::string& path) = 0;

    // Without a word when the file is missing or cannot be removed.
    virtual void remove(const std::string& path) = 0;
};

} // namespace tickervantage
