// What `tickerctl admin restore-config` says of the configurations that were kept, without asking for any rights.
#pragma once

#include "cli/configuration/settings_command.h"
#include "roothelper/jobs/kept_configurations.h"

#include <iosfwd>

namespace tickervantage {

struct KeptCommand {
    std::vector<KeptConfiguration> kept; // the newest first
    std::string installed;               // the text that is in its place
    OutputForm form = OutputForm::text;
    std::ostream& out;

    // One line each. JSON: an array of {"number", "date", "user", "reason", "installed"}.
    void list() const;

    // How this one differs from what is installed. JSON: an array of lines behind their sign.
    void difference(const KeptConfiguration& one) const;
};

} // namespace tickervantage
