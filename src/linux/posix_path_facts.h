// Facts of a path for some user, by owner, group and mode of the path and of all folders above it. Access lists and
// confinement (AppArmor) are not looked at. Waits for the disk; any thread.
#pragma once

#include "base/path_facts.h"

#include <string>

namespace tickervantage {

[[nodiscard]] PathFacts look_at_path(const std::string& path, const std::string& user);
[[nodiscard]] bool user_exists(const std::string& user);

} // namespace tickervantage
