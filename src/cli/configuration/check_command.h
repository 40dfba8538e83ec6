// What `tickerctl check` says of a configuration.
#pragma once

#include "chrony/configuration/configuration_check.h"
#include "cli/configuration/settings_command.h"

#include <iosfwd>

namespace tickervantage {

// 0: it passed; 1: it has an error, or chronyd refuses it although no error was found. That doubt stands in front of
// the warnings. Those are part of the JSON document (`isok`, `msg`, `line`, `warnings`: `line`, `sentence`), and go to
// `err` otherwise.
[[nodiscard]] int print_check(const ConfigurationCheck& check, OutputForm form, std::ostream& out, std::ostream& err);

} // namespace tickervantage
