// Units as systemd knows them. Sources: systemctl(1), org.freedesktop.systemd1(5).
#pragma once

#include "base/execute.h"
#include "base/failure.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

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

} // namespace tickervantage
