// The machine as the administrative jobs see it: what they look at before and after they act, and the files that they
// write themselves.
//
// Everything may wait for the disk or for a program. Any thread but the main one; what only looks, any thread.
#pragma once

#include "base/failure.h"
#include "chrony/configuration/config_error.h"
#include "roothelper/jobs/distribution_chrony.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct StartedDaemon {
    std::string unit;
    std::string config; // the file that it reads
};

class JobMachine {
public:
    virtual ~JobMachine() = default;

    [[nodiscard]] virtual bool file_exists(const std::string& path) const = 0;
    // None: it cannot be read.
    [[nodiscard]] virtual std::optional<std::string> read_file(const std::string& path) const = 0;
    // None where there is no folder.
    [[nodiscard]] virtual std::vector<std::string> file_names(const std::string& folder) const = 0;
    // As it is or was known here; else the number.
    [[nodiscard]] virtual std::string user_name(std::uint32_t user) const = 0;
    [[nodiscard]] virtual ConfigError check_syntax(const std::string& text) const = 0;
    // In the folders of programs; empty: not there.
    [[nodiscard]] virtual std::string find_chronywake() const = 0;
    // Whether the daemon that was just started stays up. The unit is empty for our own. May take seconds.
    [[nodiscard]] virtual bool daemon_survives(const std::string& unit) const = 0;
    // The daemon that a start brings up, of the unit or, where that is empty, of the one that the support tool chooses.
    // None: it cannot be told.
    [[nodiscard]] virtual std::optional<StartedDaemon> started_daemon(const std::string& unit) const = 0;
    // Whether the bundle's chronyd can have the kernel refuse system calls that it does not need. Runs it.
    [[nodiscard]] virtual bool filters_calls() const = 0;

    // Puts a file of the user in place of another one as a whole.
    [[nodiscard]] virtual Result<> replace_file(const std::string& path, std::string_view bytes) = 0;
    virtual void pause(int seconds) const = 0;

    // For those who look for files and for nothing else.
    [[nodiscard]] FileExists looks_for_files() const {
        return [this](const std::string& path) {
            return file_exists(path);
        };
    }
};

} // namespace tickervantage
