// Paths by the owner, the group and the mode of what lies there and of all folders above it. Access lists and
// confinement (AppArmor) are not looked at. Any thread.
#pragma once

#include "base/path_probes.h"

namespace tickervantage {

class PosixPathProbes : public PathProbes {
public:
    [[nodiscard]] PathState state(const std::string& path) const override;
    [[nodiscard]] PathFacts look(const std::string& path, const std::string& user) const override;
    [[nodiscard]] bool user_exists(const std::string& user) const override;
};

} // namespace tickervantage
