// Fills the history of a demonstration with its recorded day, which ends with an event that says so.
#pragma once

#include "chrony/demonstration/recorded_day.h"
#include "history/records.h"

#include <string>

namespace tickervantage {

// As a program would have kept it that looked at that chronyd. Waits for the disk.
[[nodiscard]] Result<> keep_recording(const std::string& path, const RecordedDay& day);

} // namespace tickervantage
