// Files of the user that must never be lost, of any size: whole reads with a limit, replacement in one step.
//
// A replaced file is at every moment, also after a crash or on a full disk, either the old one or the new one. Results
// are 0, or -1 and one sentence. Calls wait for the disk; any thread.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

// Takes the next piece of a text; -1: no more is wanted.
using TextSink = std::function<int(std::string_view)>;

class UserFiles {
public:
    enum class Found : unsigned char {
        text,
        missing,
        unfit,      // a folder, or larger than the limit: nothing that we wrote
        unreadable, // permissions, a broken disk
    };

    virtual ~UserFiles() = default;

    // `sentence` goes with `unfit` and `unreadable`.
    [[nodiscard]] virtual Found read(const std::string& path, std::size_t limit, std::string& text,
                                     std::string& sentence) = 0;

    // `write` hands the new text to the sink piece by piece and returns 0; -1 from it leaves the old file.
    // Folders above the file are made.
    [[nodiscard]] virtual int replace(const std::string& path, const std::function<int(const TextSink&)>& write,
                                      std::string& sentence) = 0;

    // Renames a file that cannot be used, so that the next replacement does not destroy it.
    [[nodiscard]] virtual int set_aside(const std::string& path, std::string& kept_as, std::string& sentence) = 0;

    // Without a word when the file is missing or cannot be removed.
    virtual void remove(const std::string& path) = 0;
};

} // namespace tickervantage
