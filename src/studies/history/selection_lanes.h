// The lanes of the sources from chrony's selection logs. Waits for the disk; any thread.
#pragma once

#include "base/followed_file.h"
#include "chrony/log/log_files.h"
#include "studies/history/history_data.h"

#include <vector>

namespace tickervantage {

// Adds each source's state, and the middle of its interval as its offset.
[[nodiscard]] Result<> add_selection(FollowedFiles& files, const std::vector<LogFile>& logs, HistoryData& data);

} // namespace tickervantage
