// Units as systemd knows them. Sources: systemctl(1), org.freedesktop.systemd1(5).
#pragma once

#include "base/execute.h"

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

[[nodiscard]] bool succeeded(const ExecuteResult& result);

// Blocks, for a minute at most.
ExecuteResult systemctl(Execute& execute, std::vector<std::string> arguments);

// A unit that is not installed is no failure: it is not there. 0, or -1 and one sentence.
[[nodiscard]] int look_at_unit(Execute& execute, const std::string& unit, UnitStatus& status, std::string& sentence);

} // namespace tickervantage
