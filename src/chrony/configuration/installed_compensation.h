// The temperature compensation that this program has installed, as the configuration and its files tell. Waits for the
// disk: not on the main thread.
#pragma once

#include "chrony/services/compensation_sensor.h"
#include "chrony/services/points_table.h"

#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct InstalledCompensation {
    std::vector<TempcompPoint> points;      // empty: they cannot be read
    double since = 0;                       // s since 1970: when the points were put in place
    std::optional<SensorPlace> sensor = {}; // none: not known
    std::string log_folder = {};
};

// None where the configuration at that path has none of ours. `root` stands before the paths of a machine in a folder.
[[nodiscard]] std::optional<InstalledCompensation> installed_compensation(const std::string& configuration,
                                                                          const std::string& root = {});

// The sensor of whichever unit of chronyd has a drop-in for it.
[[nodiscard]] std::optional<SensorPlace> installed_sensor(const std::string& root = {});

} // namespace tickervantage
