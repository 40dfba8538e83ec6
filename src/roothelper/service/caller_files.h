// The files of ordinary users on their way: read in their name, then kept until they go into root's folders, in a
// folder of the helper's own.
#pragma once

#include "roothelper/service/child_process.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tickervantage {

// A new one with these bytes, which everybody may read: the daemon's user checks a configuration. Its path; empty when
// it cannot be written. Whoever makes it removes it.
[[nodiscard]] std::string stage_file(const std::string& folder, std::string_view bytes);

// What a helper that was killed has left. Only while no other one is at work.
void remove_staged_files(const std::string& folder);

// Reads a file that an ordinary user wants installed, without lending root's eyes to the user.

inline constexpr int source_refused_status = 3; // the output is then a failure's line, otherwise the file's bytes

// A task that takes the caller's identity and only then opens the file: it must be an ordinary file of the caller with
// no second name, or one of root's, and not larger than the limit. Two seconds are enough for any honest disk.
[[nodiscard]] ChildTask read_source_task(const std::string& path, const ChildIdentity& caller, std::size_t limit);

} // namespace tickervantage
