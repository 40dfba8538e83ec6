// Puts the helper of this bundle in its place on a machine that has no package of it, and takes it away again.
//
// Run as root through pkexec. The bundle's programs are copied to a folder of root's, since nothing that an ordinary
// user can change may run as root; the path of the bundle's own support tool is noted in the rules, so that requests
// may name it. Every step may be repeated. Where a package brought its helper nothing is installed, and taking away
// leaves that one alone.
#pragma once

#include "base/failure.h"

#include <string>

namespace tickervantage {

inline constexpr const char* rules_file = "/etc/tickervantage/helper.conf";

[[nodiscard]] Result<> install_helper(const std::string& bundle);
[[nodiscard]] Result<> uninstall_helper();

} // namespace tickervantage
