// How each admitted command is run: under which identity, for how long, and where.
#pragma once

#include "roothelper/grammar/helper_request.h"
#include "roothelper/service/child_process.h"

#include <string>

namespace tickervantage {

// The user that chronyd runs as: what the configuration says, else the distributions' own; nobody where there is none.
[[nodiscard]] ChildIdentity daemon_identity(const HelperRules& rules);

// The user behind a connection. Asks the user database.
[[nodiscard]] ChildIdentity user_identity(uid_t user);

// Whether the command is the support tool, which names its failures behind its words when it is asked to.
[[nodiscard]] bool speaks_of_failures(const HelperRequest& request, const HelperRules& rules);

// Reports and everything in the daemon's own folders run as the daemon's user: a link that it left there must not lead
// root astray, and chronyc reaches the command socket as that user. What sets the clock for good, adds a user or works
// outside the folders that the helper may write to runs in a unit of its own, outside the helper's sandbox.
[[nodiscard]] ChildTask task_for(const HelperRequest& request, const HelperRules& rules);

// "chronyd -p" over a configuration that is not installed yet, as the daemon's user. The bundle's chronyd before all
// others: where AppArmor confines the distribution's by its path, that one cannot read the file. Without a chronyd the
// task has no program.
[[nodiscard]] ChildTask syntax_check_task(const std::string& configuration, const HelperRules& rules);

} // namespace tickervantage
