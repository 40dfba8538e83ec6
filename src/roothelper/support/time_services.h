// The time services of the distribution: put out of the way when our own daemon is installed, and back when it goes.
//
// Two daemons must not fight over the clock. A unit that is only stopped comes back at the next boot, at its package's
// upgrade, or with "timedatectl set-ntp true"; so those that are enabled are disabled, and ours becomes the one that
// timedatectl switches. What was enabled and what ran is kept in a file of root's, so that it can come back exactly.
// Both functions may be run again after they were interrupted, and return one sentence.
// Sources: systemctl(1), systemd-timedated.service(8).
#pragma once

#include "base/execute.h"
#include "roothelper/support/path_rules.h"

#include <string>

namespace tickervantage {

struct Machine {
    Execute& execute;
    PathRules rules;
    std::string root = {};   // stands before the paths below; empty: they are the machine's
    std::string bundle = {}; // of this program
};

inline constexpr const char* displaced_file = "/var/lib/chronyhelper/displaced-services";
inline constexpr const char* ntp_units_file = "/etc/systemd/ntp-units.d/10-tickervantage.list";

// Nothing is stopped: our daemon's unit does that when it starts.
[[nodiscard]] Result<std::string> displace_services(const Machine& machine);

// Enables what was enabled, and starts one of them: the one that ran, else the first that was enabled. Where nothing
// was noted, the first that is enabled is started.
[[nodiscard]] Result<std::string> restore_services(const Machine& machine);

} // namespace tickervantage
