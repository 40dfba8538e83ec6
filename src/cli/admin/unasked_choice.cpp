#include "cli/admin/unasked_choice.h"

#include "roothelper/jobs/installation_offers.h"
#include "settings/preferences.h"
#include "settings/warning_register.h"

#include <fmt/format.h>

#include <ostream>

namespace tickervantage {

bool tell_unasked_choice(const PreferencesGeneral& general, WarningRegister& warnings, std::ostream& err) {
    warnings.load();
    if (!general.uses_distribution_unasked() || warnings.contains(system_chrony_identifier))
        return false;
    warnings.register_warning(system_chrony_identifier);
    err << fmt::format("tickerctl: The chrony of this system is used, with {}, {} and {}; other paths can be set with "
                       "\"tickerctl settings set\".\n",
                       general.config, general.chronyd, general.chronyc)
        << std::flush;
    return true;
}

} // namespace tickervantage
