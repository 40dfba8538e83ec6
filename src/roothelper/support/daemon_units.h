// Starting and stopping the daemon and the wake tool through systemd.
//
// The daemon's unit is ours where it is installed, else that of the distribution. Every function blocks until the
// service manager's job has ended. Source: systemctl(1), journalctl(1).
#pragma once

#include "base/execute.h"
#include "base/failure.h"
#include "base/pause.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Units as systemd knows them. Sources: systemctl(1), org.freedesktop.systemd1(5).
struct UnitStatus {
    std::map<std::string, std::string, std::less<>> values; // properties by name

    [[nodiscard]] std::string operator[](std::string_view key) const;
    [[nodiscard]] bool is_there() const { return (*this)["LoadState"] == "loaded"; }
    [[nodiscard]] bool is_down() const;
    [[nodiscard]] bool is_up() const { return (*this)["ActiveState"] == "active"; }
    [[nodiscard]] bool is_enabled() const { return (*this)["UnitFileState"].starts_with("enabled"); }
    // Another one of these means another process.
    [[nodiscard]] std::string run() const { return (*this)["InvocationID"] + " " + (*this)["MainPID"]; }
};

// Blocks, for a minute at most.
ExecuteResult systemctl(Execute& execute, std::vector<std::string> arguments);

// The same for one unit, the last argument; `otherwise` names the failure, which is told with the unit's name.
[[nodiscard]] Result<> manage_unit(Execute& execute, std::vector<std::string> arguments, FailureCode otherwise);

// A unit that is not installed is no failure: it is not there.
[[nodiscard]] Result<UnitStatus> look_at_unit(Execute& execute, const std::string& unit);

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
