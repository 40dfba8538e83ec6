// Looking at a path. May wait for the disk or the network: on a queue.
#pragma once

#include "base/path_state.h"

#include <string>

namespace tickervantage {

[[nodiscard]] PathState path_state(const std::string& path);

} // namespace tickervantage
