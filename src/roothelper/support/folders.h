// Folders and files that the daemon needs made, or taken away.
#pragma once

#include "roothelper/support/path_rules.h"

#include <string>
#include <vector>

namespace tickervantage {

// Makes a folder that holds files of root, with the folders above it. One that is there stays as it is.
[[nodiscard]] Result<> make_folder(const std::string& path, const PathRules& rules);

// Makes a folder that the daemon writes in. Its owner is the user of that configuration among `configurations` (the
// latest first) which names the folder as its logdir, dumpdir or ntsdumpdir; the user that the distributions give
// chronyd where the configuration names none; root where no configuration names the folder. Logs are for everybody to
// read, other folders are not. A folder that is there stays as it is.
[[nodiscard]] Result<> make_daemon_folder(const std::string& path, const std::vector<std::string>& configurations,
                                          const PathRules& rules);

// The configuration files of chrony on this machine, the one written last first.
[[nodiscard]] std::vector<std::string> installed_configurations();

// Removes a file, a socket or a symbolic link (not what it points to); a missing one is removed already. In a folder of
// another user this happens with that user's rights, so that a path exchanged meanwhile gains nobody anything.
[[nodiscard]] Result<> remove_item(const std::string& path, const PathRules& rules);

} // namespace tickervantage
