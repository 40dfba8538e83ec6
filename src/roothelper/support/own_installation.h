// Our own installation of chrony, as the package's scripts look after it: they have nobody to ask, and go by the
// installed units. Each returns one sentence.
#pragma once

#include "roothelper/support/time_services.h"

#include <string>

namespace tickervantage {

// Replaces installed programs that differ from the bundle's, so that updates of chrony reach them, and restarts the
// services that run them. By content: an update need not change what a program says of its version.
[[nodiscard]] Result<std::string> refresh_programs(const Machine& machine);

// Takes units and programs away, and gives the other time services back. Configuration and logs stay.
[[nodiscard]] Result<std::string> remove_installation(const Machine& machine);

} // namespace tickervantage
