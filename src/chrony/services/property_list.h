// A service as an XML property list. Source: launchd.plist(5).
#pragma once

#include <string>

namespace tickervantage {

struct ServiceDescription;

[[nodiscard]] std::string property_list(const ServiceDescription& service);

} // namespace tickervantage
