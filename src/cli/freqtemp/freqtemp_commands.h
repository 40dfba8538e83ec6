// What `tickerctl fit` and `tickerctl sensors` do: the polynomials through the points of a scatter map or of a .csv,
// and the machine's temperature sensors. Waits for the disk.
#pragma once

#include "base/failure.h"
#include "base/sensors.h"
#include "cli/configuration/settings_command.h"
#include "studies/freqtemp/scatter_map.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace tickervantage {

class UserFiles;

// Reads a scatter map; from a file that ends in .csv points, whose sensor is the file's stem where they name none.
[[nodiscard]] Result<ScatterMap> read_points(UserFiles& files, const std::string& path);

// Fits every sensor anew. False: one failed at least, or there is none.
[[nodiscard]] bool fit_all(ScatterMap& map, int order);

// The document's keys are sensors, then the fit's fields; numbers of a fit that is not valid are 0.
void print_fits(const ScatterMap& map, int order, OutputForm form, std::ostream& out);

// A sensor that gives no reading now has the temperature null, or "-" as text.
void print_sensors(const std::vector<SensorReading>& readings, OutputForm form, std::ostream& out);

} // namespace tickervantage
