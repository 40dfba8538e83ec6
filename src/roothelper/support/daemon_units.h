// Starting and stopping the daemon and the wake tool through systemd.
//
// The daemon's unit is ours where it is installed, else that of the distribution. Every function blocks until the
// service manager's job has ended. 0 or -1, and one sentence either way. Source: systemctl(1), journalctl(1).
#pragma once

#include "base/execute.h"

#include <chrono>
#include <functional>
#include <string>

namespace tickervantage {

struct DaemonUnits {
    Execute& execute;
    std::function<void(std::chrono::milliseconds)> pause; // between two looks at a daemon that was started
};

// Starts the daemon and watches it for five seconds; a daemon that dies meanwhile is a failure, told in its own last
// words.
[[nodiscard]] int start_chrony(const DaemonUnits& units, std::string& sentence);

// Stops every chronyd that runs as a service, ours and the distribution's. None at all is stopped already.
[[nodiscard]] int stop_chrony(const DaemonUnits& units, std::string& sentence);

[[nodiscard]] int start_wake(const DaemonUnits& units, std::string& sentence);
[[nodiscard]] int stop_wake(const DaemonUnits& units, std::string& sentence);

} // namespace tickervantage
