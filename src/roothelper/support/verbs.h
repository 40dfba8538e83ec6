// The verbs of chronysupport: what root does for the application, one piece of work a run.
//
//   installitem SOURCE DESTINATION OWNER MODE   restoreformer DESTINATION      removeitem PATH
//   createdirectory "" PATH                     (for files of root)
//   createdirectory PATH                        (for the daemon to write in)
//   adduser NAME          steptime SECONDS      rotatelogs SCRIPT FOLDER
//   startchrony           stopchrony            startwake           stopwake
//   displaceservices      restoreservices       adjustclock on|off  openlogs
//   usesensor DEVICE CHIP INPUT                 checksensor  dropsensor
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
    std::vector<std::string> configurations; // of chrony, the latest first
    std::string root = {};                   // see Machine
    std::string bundle = {};
};

// `words`: the verb and its arguments. The line says what was done. Words that are no verb fail as no_such_verb.
// Blocks.
[[nodiscard]] Result<std::string> run_verb(const std::vector<std::string>& words, const SupportParts& parts);

// One line, whatever came of it.
[[nodiscard]] std::string answer_line(const Result<std::string>& said);

} // namespace tickervantage
