// Brings chronyd to the temperature that it compensates by: a drop-in for each unit of chronyd that is installed, ours
// and the distribution's, and the empty file under which the temperature is shown to it. Both take effect when chronyd
// is started next. What returns a text returns one sentence; both may be run again after they were interrupted.
#pragma once

#include "chrony/services/compensation_sensor.h"
#include "roothelper/support/time_services.h"

#include <string>

namespace tickervantage {

// Fails where the sensor is not plain, or gives no temperature now.
[[nodiscard]] Result<std::string> use_sensor(const Machine& machine, const SensorPlace& sensor);

// Fails as compensation_without_temperature where a chronyd that runs has complained, since it was started, that it
// cannot read the temperature.
[[nodiscard]] Result<std::string> check_sensor(const Machine& machine);

// Takes them away, and the points of the compensation before.
[[nodiscard]] Result<std::string> drop_sensor(const Machine& machine);

} // namespace tickervantage
