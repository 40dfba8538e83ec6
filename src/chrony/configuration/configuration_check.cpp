#include "chrony/configuration/configuration_check.h"

#include "base/failure_codes.h"

namespace tickervantage {

ConfigurationCheck check_configuration(const ConfigurationCheckParts& parts, std::string_view text) {
    ConfigurationCheck check{checkSyntax(parts.syntax, text),
                             configuration_warnings(text, parts.probes, parts.daemon_user)};
    if (parts.syntax.chronyds().empty())
        check.warnings.insert(check.warnings.begin(), {0, {.code = FailureCode::no_chronyd_to_check}});
    return check;
}

} // namespace tickervantage
