// The chrony that the distribution installed, which can stand for one of our own.
#pragma once

#include "settings/preferences.h"

#include <functional>
#include <optional>
#include <string>

namespace tickervantage {

struct DistributionChrony {
    std::string config;
    std::string chronyc;
    std::string chronyd;
    std::string unit; // such as "chrony.service"
    friend bool operator==(const DistributionChrony&, const DistributionChrony&) = default;
};

using FileExists = std::function<bool(const std::string& path)>;

// None unless all four parts are there.
[[nodiscard]] std::optional<DistributionChrony> find_distribution_chrony(const FileExists& file_exists);

// Where chrony lies on this machine as long as nobody has said otherwise: the distribution's, where there is one and
// none of ours; else the documented paths.
[[nodiscard]] ChronyPaths usual_chrony_paths(const FileExists& file_exists);

// The file that the distribution's chronyd reads when it is told of none; empty: there is none.
[[nodiscard]] std::string distribution_configuration(const FileExists& file_exists);

// The unit that starts and stops the daemon when the configured chronyd is the distribution's; empty: it is our own.
[[nodiscard]] std::string distribution_unit(const std::string& chronyd, const FileExists& file_exists);

} // namespace tickervantage
