// The program's folders, by the rules of the XDG base directories.
//
// Every folder is absolute and without a slash at its end, except `temporary`; relative values of the environment are
// passed over as those rules demand. Nothing is created and nothing can fail: what is missing has a substitute.
// Source: the XDG base directory rules, version 0.8 (freedesktop.org).
#pragma once

#include "base/paths.h"
#include "linux/environment.h"

#include <string>

namespace tickervantage {

// What the paths are worked out from.
struct PathsOrigin {
    EnvironmentLookup environment;
    std::string program;     // the running program, links resolved
    std::string passwd_home; // the user's home by the user database; empty: none
};

[[nodiscard]] Paths work_out_paths(const PathsOrigin& origin);

// The same for this process. After PrivateTemporary was made, so that `temporary` is the private folder.
[[nodiscard]] Paths process_paths();

} // namespace tickervantage
