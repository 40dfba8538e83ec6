// Puts a file in its place as root: whole or not at all, with owner and mode, lasting.
//
// The new file is written beside, checked, given owner and mode, flushed, and renamed over the old one. Whoever looks
// sees the old file or the new one, also after a kill or a power cut at any moment; what a killed run left beside is
// taken away by the next. Two runs in one folder wait for each other, ten seconds at most.
//
// A configuration ("*.conf", "*.tempcomp") that is replaced by another stays beside it as "<path>.former", with its
// owner and mode, until the next one: so a daemon that does not start with the new one can have the old one back.
//
// Whether the person who asks may read the source is not known here: whoever offers a source for somebody else reads it
// in that person's name first.
#pragma once

#include "roothelper/support/path_rules.h"

#include <string>
#include <string_view>

namespace tickervantage {

struct Installation {
    std::string source;      // an ordinary file of at most 64 MiB, not a symbolic link
    std::string destination; // absolute; its folder is there and only ours
    std::string owner;       // "user:group"
    std::string mode;        // four octal digits: nothing that runs as its owner or that others may write
};

[[nodiscard]] Result<> install_file(const Installation& what, const PathRules& rules);

// Puts a text of root's in its place, readable by everybody; missing folders on the way are made.
[[nodiscard]] Result<> install_text(const std::string& path, std::string_view text, const PathRules& rules);

// Whether both can be read and hold the same bytes.
[[nodiscard]] bool same_files(const std::string& one, const std::string& other);

// Puts "<destination>.former" back in the destination's place.
[[nodiscard]] Result<> restore_former(const std::string& destination, const PathRules& rules);

} // namespace tickervantage
