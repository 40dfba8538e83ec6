// What `tickerctl config` says: the directives of a chrony.conf, or the value of one.
#pragma once

#include "chrony/configuration/configuration.h"
#include "chrony/configuration/configuration_check.h"
#include "cli/configuration/settings_command.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace tickervantage {

// JSON: an object of texts, or one text; null for a directive that is not there, which is also the answer 1.
[[nodiscard]] int print_configuration(const Configuration& configuration, const std::optional<std::string>& directive,
                                      OutputForm form, std::ostream& out);

// What `tickerctl check` says of a configuration.

// 0: it passed; 1: it has an error, or chronyd refuses it although no error was found. That doubt stands in front of
// the warnings. Those are part of the JSON document (`isok`, `msg`, `line`, `warnings`: `line`, `sentence`), and go to
// `err` otherwise.
[[nodiscard]] int print_check(const ConfigurationCheck& check, OutputForm form, std::ostream& out, std::ostream& err);

} // namespace tickervantage
