// The verbs of chronysupport: what root does for the application, one piece of work a run.
//
//   installitem SOURCE DESTINATION OWNER MODE   restoreformer DESTINATION      removeitem PATH
//   createdirectory "" PATH                     (for files of root)
//   createdirectory PATH                        (for the daemon to write in)
//   adduser NAME          steptime SECONDS      rotatelogs SCRIPT FOLDER
//   startchrony           stopchrony            startwake           stopwake
//   displaceservices      restoreservices       adjustclock on|off  openlogs
//   refreshprograms       removeinstallation    (for the scripts of the package)
//
// Every verb may be run again after it was interrupted at any moment. Who may ask for it is decided before.
#pragma once

#include "roothelper/support/clock_step.h"
#include "roothelper/support/daemon_units.h"
#include "roothelper/support/path_rules.h"

#include <string>
#include <vector>

namespace tickervantage {

struct SupportParts {
    PathRules rules;
    DaemonUnits units;
    SteppedClock& clock;
    std::function<std::vector<std::string>()> configurations; // of chrony, the latest first
    std::string root = {};                                    // see Machine
    std::string bundle = {};
};

enum class VerbResult : int { done = 0, failed = 1, usage = 2 }; // also the exit status

// `words`: the verb and its arguments. The line says what was done, or in one sentence why not. Blocks.
[[nodiscard]] VerbResult run_verb(const std::vector<std::string>& words, const SupportParts& parts, std::string& line);

} // namespace tickervantage
