// Reads a file that an ordinary user wants installed, without lending root's eyes to the user.
#pragma once

#include "roothelper/service/child_process.h"

#include <cstddef>
#include <string>

namespace tickervantage {

inline constexpr int source_refused_status = 3; // the output is then a failure's line, otherwise the file's bytes

// A task that takes the caller's identity and only then opens the file: it must be an ordinary file of the caller with
// no second name, or one of root's, and not larger than the limit. Two seconds are enough for any honest disk.
[[nodiscard]] ChildTask read_source_task(const std::string& path, const ChildIdentity& caller, std::size_t limit);

} // namespace tickervantage
