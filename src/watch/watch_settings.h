// The watch in the settings: the thresholds that the user chose, and what has to outlive the program. Main thread.
#pragma once

#include "watch/engine.h"

namespace tickervantage {

class DefaultSettings;

[[nodiscard]] WatchThresholds load_thresholds(const DefaultSettings& settings);
void save(DefaultSettings& settings, const WatchThresholds& thresholds);

[[nodiscard]] WatchMemory load_memory(const DefaultSettings& settings);
void save(DefaultSettings& settings, const WatchMemory& memory);

} // namespace tickervantage
