// What the distribution's chrony does differently, through drop-ins for its unit: the packages' own files stay as they
// are, and each drop-in can be taken away again. What returns a text returns one sentence.
// Source: systemd.unit(5).
#pragma once

#include "roothelper/support/time_services.h"

#include <string>

namespace tickervantage {

// Off: chronyd leaves the clock alone (its option -x). Restarts the daemon where it runs; a daemon that does not come
// up with the option runs without it again, and that is a failure.
[[nodiscard]] Result<std::string> adjust_clock(const Machine& machine, bool on);

// Everybody may enter the folder of logs, also after the unit has set it up anew at its start.
[[nodiscard]] Result<std::string> open_log_folder(const Machine& machine);

// After the package of chrony has changed its unit: what was derived from the unit is derived again.
[[nodiscard]] Result<> renew_options(const Machine& machine);

// Takes both away. The daemon is restarted where that changes what it does.
[[nodiscard]] Result<> remove_options(const Machine& machine);

} // namespace tickervantage
