// The daemon that a job starts: whether it stays up, and which configuration it reads.
#pragma once

#include "base/execute.h"
#include "chrony/services/service_definitions.h"
#include "roothelper/jobs/job_machine.h"

#include <optional>
#include <string>

namespace tickervantage {

inline constexpr int watch_seconds = 5;

struct DaemonWatch {
    Execute& execute;
    const JobMachine& machine; // which pauses
    ServiceForm form = native_service_form;

    // Looks once a second, for watch_seconds. The unit is empty for the daemon of our own: where the support tool has
    // watched that one already when it started it, one look is enough. Blocks.
    [[nodiscard]] bool daemon_survives(const std::string& unit) const;

private:
    [[nodiscard]] bool is_up(const std::string& unit) const;
};

// Which configuration the daemon reads that a job starts: a file that nobody reads is not worth installing.
//
// Sources: systemctl(1), show; systemd.exec(5), EnvironmentFile; chronyd(8), option -f; proc(5).
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
