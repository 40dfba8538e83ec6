// Which configuration the daemon reads that a job starts: a file that nobody reads is not worth installing.
//
// Sources: systemctl(1), show; systemd.exec(5), EnvironmentFile; chronyd(8), option -f; proc(5).
#pragma once

#include "base/execute.h"
#include "roothelper/jobs/job_machine.h"

#include <optional>
#include <string>

namespace tickervantage {

struct StartedDaemonLook {
    Execute& execute;
    const JobMachine& machine; // whose files are looked at
    std::string proc = "/proc";

    // By the words of the daemon that runs, else by those of its unit. `unit` is empty for the one that the support
    // tool chooses: our own, else the distribution's. None: it cannot be told. Blocks.
    [[nodiscard]] std::optional<StartedDaemon> started_daemon(const std::string& unit) const;

private:
    [[nodiscard]] std::optional<StartedDaemon> look_at(const std::string& unit) const;
    [[nodiscard]] std::string running_line(const std::string& pid) const;
    [[nodiscard]] std::string with_variables(const std::string& line, const std::string& environment_file) const;
};

} // namespace tickervantage
