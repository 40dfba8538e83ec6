// What the services around chrony are: the daemon, the daily rotation of its logs, and the wake tool.
#pragma once

#include "chrony/services/service_definitions.h"

#include <string>
#include <vector>

namespace tickervantage {

inline constexpr const char* daemon_label = "org.chrony-project.chronyd";
inline constexpr const char* rotation_label = "org.chrony-project.logrotate";
inline constexpr const char* wake_label = "net.brisklane.chronywake";
inline constexpr const char* gpsd_label = "net.brisklane.gpsdstart"; // the sibling application's

// Two daemons must never fight over the clock: the time services of the distributions, which ours displaces, chrony's
// first. Not those for hardware that keeps time (phc2sys, ptp4l): who set one up may let chronyd feed on it.
[[nodiscard]] const std::vector<std::string>& other_time_services();

// `adjusts_clock` off: the daemon serves time and leaves the clock alone. `filters_calls`: the kernel refuses system
// calls that chronyd does not need, where chronyd was built to ask for that; the unit says so, the property list
// cannot.
[[nodiscard]] ServiceDescription daemon_service(const std::string& chronyd, const std::string& configuration,
                                                bool adjusts_clock, bool filters_calls = false);

[[nodiscard]] ServiceDescription rotation_service(const std::string& script, const std::string& chronyc,
                                                  const std::string& log_folder);

[[nodiscard]] ServiceDescription wake_service(const std::string& chronywake, const std::vector<std::string>& options);

} // namespace tickervantage
