// What `tickerctl sensors` does: the machine's temperature sensors, as text or as one JSON document.
#pragma once

#include "base/sensors.h"
#include "cli/configuration/settings_command.h"

#include <iosfwd>
#include <vector>

namespace tickervantage {

// A sensor that gives no reading now has the temperature null, or "-" as text.
void print_sensors(const std::vector<SensorReading>& readings, OutputForm form, std::ostream& out);

} // namespace tickervantage
