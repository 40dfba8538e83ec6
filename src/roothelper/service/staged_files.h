// The files of ordinary users on their way into root's folders, in a folder of the helper's own.
#pragma once

#include <string>
#include <string_view>

namespace tickervantage {

// A new one with these bytes, which everybody may read: the daemon's user checks a configuration. Its path; empty when
// it cannot be written. Whoever makes it removes it.
[[nodiscard]] std::string stage_file(const std::string& folder, std::string_view bytes);

// What a helper that was killed has left. Only while no other one is at work.
void remove_staged_files(const std::string& folder);

} // namespace tickervantage
