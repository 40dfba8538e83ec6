// The free-running clock behind the readings that this program keeps. Waits for the disk; any thread.
#pragma once

#include "base/failure.h"
#include "studies/laboratory/free_running_clock.h"

#include <string>

namespace tickervantage {

// One record for each update that was seen. Only whole readings count, those of the last days: what has been thinned
// has lost the single offsets. How much the network shakes is not kept with them, so `offset_sd` is none.
[[nodiscard]] Result<FreeRunningClock> read_stored_clock(const std::string& store);

} // namespace tickervantage
