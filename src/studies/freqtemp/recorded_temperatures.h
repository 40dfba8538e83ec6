// The days before a demonstration: a made-up crystal whose frequency follows its temperature, so that the plot of the
// two and the compensation have something to show. Made here with a fixed seed; a pure function of its end.
#pragma once

#include "base/user_files.h"
#include "studies/freqtemp/scatter_map.h"

#include <cstdint>
#include <string>

namespace tickervantage {

// Six days, a point each six minutes, the last one at `end`, s since 1970. The crystal turns at 42 °C; beside that it
// shakes by a tenth of a ppm.
[[nodiscard]] ScatterMap recorded_temperatures(std::int64_t end);

// Writes them as the map of temperatures and frequencies.
[[nodiscard]] Result<> keep_recorded_temperatures(Files& files, const std::string& path, std::int64_t end);

} // namespace tickervantage
