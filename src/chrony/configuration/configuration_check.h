// The whole check of a configuration: its syntax by chronyd, and the warnings beside it. Not on the main thread.
#pragma once

#include "chrony/configuration/config_error.h"
#include "chrony/configuration/configuration_warnings.h"

namespace tickervantage {

struct ConfigurationCheckParts {
    SyntaxCheckParts syntax;
    const PathProbes& probes;
    std::string daemon_user = {}; // as configuration_warnings() has it
};

struct ConfigurationCheck {
    ConfigError error;
    std::vector<ConfigurationWarning> warnings;
};

[[nodiscard]] ConfigurationCheck check_configuration(const ConfigurationCheckParts& parts, std::string_view text);

} // namespace tickervantage
