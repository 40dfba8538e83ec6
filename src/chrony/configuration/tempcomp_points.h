// The file of points for chronyd's temperature compensation: a temperature and a compensation a line, between which
// chronyd interpolates. "chronyd -p" does not read it: what is wrong in it ends the daemon at its start, or makes it
// compensate wrongly without a word. Source: chrony.conf(5), tempcomp; each rule was tried on chronyd 4.3.
#pragma once

#include "base/failure.h"

#include <cstddef>
#include <optional>
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
// does. Pure, any thread.
[[nodiscard]] Result<std::vector<TempcompPoint>> read_tempcomp_points(std::string_view text, const std::string& file);

// What is wrong with a file of points that a configuration names.
struct TempcompError {
    std::string included; // the file with the directive; empty: the configuration itself
    std::size_t line = 0; // of the directive, counted from 1
    Failure what;
};

// The first error in the files of points that a configuration, or a file that it includes, names. Files that we may not
// read are passed over. Waits for the disk: not on the main thread.
[[nodiscard]] std::optional<TempcompError> tempcomp_error(std::string_view configuration);

} // namespace tickervantage
