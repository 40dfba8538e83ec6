// Ways to files that root changes: only through folders that nobody else can change.
//
// A path given to root is safe only if nobody can exchange a piece of it meanwhile. So each folder on the way is opened
// from the one before it, and must belong to root (or to the user who runs this) and be writable by nobody else; a
// folder like /tmp, where only a file's owner can move it, may lie on the way but is no destination. Symbolic links on
// the way are followed only when root made them (/var/run is one), never at the end. What is opened stays opened: later
// steps act on the descriptor, not on the path.
#pragma once

#include "base/failure.h"
#include "linux/file_descriptor.h"

#include <sys/stat.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace tickervantage {

struct PathRules {
    uid_t self = 0; // who runs this, and so is trusted beside root

    // Whether nobody else can change what lies in a folder (or what a file holds) with this status.
    [[nodiscard]] bool only_ours(const struct stat& status) const;
};

// A place where a file is, or is to be: its folder and its name there.
struct Place {
    FileDescriptor folder; // O_PATH
    struct stat folder_status {};
    std::string name;
    std::string path; // for failures
};

enum class Missing : unsigned char { refuse, create }; // folders on the way

// Cuts an absolute path into names. Refuses "..", control characters and overlong paths; "//", "." and a "/" at the end
// say nothing.
[[nodiscard]] Result<std::vector<std::string>> split_path(const std::string& path);

// Opens the folder that a path lies in. Whether that last folder is only ours is for the caller to check. With
// Missing::create missing folders are made, for everybody to read. Without, the place's `folder` is not valid when one
// is missing: that is no failure.
[[nodiscard]] Result<Place> open_place(const std::string& path, const PathRules& rules, Missing missing);

// A failure unless the place's folder is only ours.
[[nodiscard]] Result<> require_own_folder(const Place& place, const PathRules& rules);

// Makes what happened in a folder last through a power cut.
[[nodiscard]] Result<> flush_folder_of(const Place& place);

} // namespace tickervantage
