// The rules of the engine as alerting rules over the metrics of metrics.h, and tests of them: what is raised and ends
// on a desktop is raised and ends in the same evaluation there. Source: Prometheus 2.42, alerting rules and unit tests.
// Pure functions, any thread.
#pragma once

#include "watch/rules.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// "ClockHoldover"
[[nodiscard]] std::string_view alert_of(WatchQuantity quantity);

// A rule file. Beside the engine's rules it has one for hosts whose metrics come through a file of the node exporter:
// such a file stays as it is when nobody writes it any more.
[[nodiscard]] std::string prometheus_rules(const std::vector<WatchRule>& rules);

// For `promtool test rules`, with the rule file beside it under a name that ends in "rules.yml".
[[nodiscard]] std::string prometheus_tests(const std::vector<WatchRule>& rules);

} // namespace tickervantage
