// What a syntax check does not see: files, folders and devices that a configuration names and that are not there, or
// that chronyd cannot use, and names that only fail when the daemon starts.
//
// Looks at paths, so not on the main thread; nothing is warned of where we are not allowed to look. Files that are
// included are not looked into. Warnings come line by line.
// Source: chrony.conf(5) of chrony 4.3.
#pragma once

#include "base/failure.h"
#include "base/path_probes.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace tickervantage {

struct ConfigurationWarning {
    std::size_t line = 0; // counted from 1; 0: the text as a whole
    Failure what;
};

inline constexpr std::size_t most_warnings = 200; // a text full of errors is not worth more

// `daemon_user`: as whom chronyd runs whatever the text says; empty: as the text, or else its builder, has it.
[[nodiscard]] std::vector<ConfigurationWarning> configuration_warnings(std::string_view text, const PathProbes& probes,
                                                                       std::string_view daemon_user = {});

} // namespace tickervantage
