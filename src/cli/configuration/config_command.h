// What `tickerctl config` says: the directives of a chrony.conf, or the value of one.
#pragma once

#include "chrony/configuration/configuration.h"
#include "cli/configuration/settings_command.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace tickervantage {

// JSON: an object of texts, or one text; null for a directive that is not there, which is also the answer 1.
[[nodiscard]] int print_configuration(const Configuration& configuration, const std::optional<std::string>& directive,
                                      OutputForm form, std::ostream& out);

} // namespace tickervantage
