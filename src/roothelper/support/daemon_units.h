// Starting and stopping the daemon and the wake tool through systemd.
//
// The daemon's unit is ours where it is installed, else that of the distribution. Every function blocks until the
// service manager's job has ended. Source: systemctl(1), journalctl(1).
#pragma once

#include "base/execute.h"
#include "base/failure.h"
#include "base/pause.h"

#include <string>

namespace tickervantage {

struct DaemonUnits {
    Execute& execute;
    Pause& pause; // between two looks at a daemon that was started
};

// Starts the daemon and watches it for five seconds; a daemon that dies meanwhile is a failure, told in its own last
// words. Each returns one sentence.
[[nodiscard]] Result<std::string> start_chrony(const DaemonUnits& units);

// Stops every chronyd that runs as a service, ours and the distribution's. None at all is stopped already.
[[nodiscard]] Result<std::string> stop_chrony(const DaemonUnits& units);

[[nodiscard]] Result<std::string> start_wake(const DaemonUnits& units);
[[nodiscard]] Result<std::string> stop_wake(const DaemonUnits& units);

} // namespace tickervantage
