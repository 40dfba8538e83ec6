// Named texts that outlive the program: the raw store behind the typed settings.
//
// Main thread only, and never waits for the disk: reading was done when the store was made, writing happens behind.
// Keys that the program does not know survive every save.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // A value is a list of texts; a plain value has exactly one. Absent keys give no value.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> read(std::string_view key) const = 0;
    virtual void write(std::string_view key, const std::vector<std::string>& value) = 0;
    virtual void remove(std::string_view key) = 0;
};

} // namespace tickervantage
