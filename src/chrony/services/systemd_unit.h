// A service as the texts of systemd units. Sources: systemd.service(5), systemd.timer(5), systemd.syntax(7).
#pragma once

#include <string>

namespace tickervantage {

struct ServiceDescription;

[[nodiscard]] std::string service_unit(const ServiceDescription& service);

// For a service with a daily time.
[[nodiscard]] std::string timer_unit(const ServiceDescription& service);

} // namespace tickervantage
