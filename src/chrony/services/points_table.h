// The points of chronyd's temperature compensation: a temperature and a compensation a line, between which chronyd
// interpolates. chronyd reads them when it starts: what is wrong in them ends it, or makes it compensate wrongly
// without a word. Source: chrony.conf(5), tempcomp; each rule was tried on chronyd 4.3. Pure functions, any thread.
#pragma once

#include "base/failure.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct TempcompPoint {
    double temperature = 0;  // in the unit of the sensor's file; sysfs: thousandths of a degree Celsius
    double compensation = 0; // ppm
};

// chronyd ignores a compensation beyond it.
inline constexpr double largest_compensation = 10; // ppm, either way

// Two points or more, temperatures ascending. Fails at the first line at which chronyd would end, or from which on it
// would compensate wrongly, and names it and the file. What stands behind the two numbers is passed over, as chronyd
// does.
[[nodiscard]] Result<std::vector<TempcompPoint>> read_tempcomp_points(std::string_view text, const std::string& file);

// The same for a sensor of the kernel's, whose file has thousandths of a degree: points in degrees fail too.
[[nodiscard]] Result<std::vector<TempcompPoint>> read_points_for_kernel(std::string_view text, const std::string& file);

} // namespace tickervantage
