// A demonstration comes up while the window opens.
#pragma once

#include "base/failure.h"

#include <future>
#include <string>

namespace tickervantage {

class Demonstration;

using Readiness = std::shared_future<Result<>>;

// For one that has begun: writes its recorded past into the folder of its data and waits until its daemons answer, on a
// thread of its own. The demonstration outlives the last copy of what is returned.
[[nodiscard]] Readiness bring_up(Demonstration& demonstration, const std::string& data);

} // namespace tickervantage
