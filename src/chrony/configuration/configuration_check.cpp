#include "chrony/configuration/configuration_check.h"

namespace tickervantage {

ConfigurationCheck check_configuration(const ConfigurationCheckParts& parts, std::string_view text) {
    ConfigurationCheck check{checkSyntax(parts.syntax, text), configuration_warnings(text, parts.probes)};
    if (parts.syntax.chronyds().empty())
        check.warnings.insert(check.warnings.begin(),
                              {0, "chronyd was not found on this machine, so the syntax was not checked."});
    return check;
}

} // namespace tickervantage
