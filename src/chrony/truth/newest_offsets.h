// What chronyd measured lately, out of its tracking log. Source: chrony.conf(5), log tracking, logdir.
#pragma once

#include "chrony/data/capture.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

// The path of the log; none where the configuration asks for no such log.
[[nodiscard]] std::optional<std::string> tracking_log_of(const std::vector<CapturedFile>& configuration);

// The offsets of the newest 64 records at most, the newest last; none where the configuration asks for no such log or
// it cannot be read. Reads the end of the file only, and waits for the disk: not on the main thread.
[[nodiscard]] std::vector<double> newest_offsets(const std::vector<CapturedFile>& configuration);

} // namespace tickervantage
