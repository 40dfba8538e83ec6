// `tickerctl follow`: the lines of a log as they are written.
#pragma once

#include "base/followed_file.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace tickervantage {

enum class FollowForm : unsigned char { text, json };

// Prints lines until `wait` returns; that is where the calling thread stays. Returns an exit status: `has_failed` when
// the file could not be read at the end. What keeps it from being read is said once, in one line on standard error.
[[nodiscard]] int follow_log(const std::string& name, FollowedFiles& files, FollowForm form, std::ostream& out,
                             const std::function<void()>& wait);

} // namespace tickervantage
