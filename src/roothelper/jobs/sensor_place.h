// Where a sensor lies that a compensation is to read: what stays the same when the kernel numbers its sensors anew.
// Looks at files of the kernel. Any thread.
#pragma once

#include "base/failure.h"
#include "chrony/services/compensation_sensor.h"

#include <string>

namespace tickervantage {

// Of a file such as "/sys/class/hwmon/hwmon3/temp1_input"; `name` is for the failure. `root` stands before the paths of
// a machine in a folder.
[[nodiscard]] Result<SensorPlace> place_of_sensor(const std::string& file, const std::string& name,
                                                  const std::string& root = {});

} // namespace tickervantage
