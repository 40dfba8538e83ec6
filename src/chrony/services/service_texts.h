// A service in the two forms of the services' managers. Sources: systemd.service(5), systemd.timer(5),
// systemd.syntax(7), launchd.plist(5).
#pragma once

#include <string>

namespace tickervantage {

struct ServiceDescription;

[[nodiscard]] std::string service_unit(const ServiceDescription& service);

// For a service with a daily time.
[[nodiscard]] std::string timer_unit(const ServiceDescription& service);

// In XML.
[[nodiscard]] std::string property_list(const ServiceDescription& service);

} // namespace tickervantage
