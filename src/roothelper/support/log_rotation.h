// Rotating the daemon's logs now.
#pragma once

#include "base/execute.h"
#include "roothelper/support/path_rules.h"

#include <string>

namespace tickervantage {

// Runs the script with the path of the chronyc beside it and the log folder, in that folder and as its owner: whoever
// can exchange a log for a symbolic link then gains nothing by it. The script must be only ours. Blocks while it runs.
// One sentence.
[[nodiscard]] Result<std::string> rotate_logs(Execute& execute, const std::string& script, const std::string& folder,
                                              const PathRules& rules);

} // namespace tickervantage
