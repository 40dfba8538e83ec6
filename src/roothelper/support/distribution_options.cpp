#include "roothelper/support/distribution_options.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "roothelper/support/daemon_units.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"
#include "roothelper/support/one_line.h"

#include <fmt/format.h>

#include <sys/stat.h>
#include <unistd.h>

#include <vector>

namespace tickervantage {
namespace {

// Behind the names that administrators use, since the last one decides.
constexpr const char* clock_name = "tickervantage-clock.conf";
constexpr const char* logs_name = "tickervantage-logs.conf";
constexpr const char* heading = "# Written by Tickervantage, and removed with it.\n[Service]\n";

std::string folder_of(const Machine& machine, const std::string& unit) {
    return fmt::format("{}/etc/systemd/system/{}.d", machine.root, unit);
}

std::string path_of(const Machine& machine, const std::string& unit, const char* name) {
    return folder_of(machine, unit) + '/' + name;
}

bool is_there(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

Result<UnitStatus> find_unit(const Machine& machine) {
    for (const char* unit : {"chrony.service", "chronyd.service"}) {
        auto status = look_at_unit(machine.execute, unit);
        if (!status || status->is_there())
            return status;
    }
    return failed(FailureCode::no_distribution_chrony);
}

// "# /path" before each file in the service manager's listing.
bool is_file_name(std::string_view line) {
    return line.starts_with("# /") && line.find(' ', 2) == std::string_view::npos;
}

// The command that starts the daemon, as the unit and its drop-ins say it without ours.
Result<std::string> command_of(const Machine& machine, const std::string& unit) {
    const auto listing = systemctl(machine.execute, {"cat", "--no-pager", unit});
    if (!succeeded(listing))
        return failed(FailureCode::cannot_read, {unit}, last_words(listing));
    constexpr std::string_view key = "ExecStart=";
    std::vector<std::string> commands;
    bool ours = false;
    for (const auto line : non_empty_lines(listing.output)) {
        if (is_file_name(line))
            ours = line.ends_with(clock_name);
        if (ours || !line.starts_with(key))
            continue;
        const auto value = trimmed(line.substr(key.size()));
        if (value.empty())
            commands.clear();
        else
            commands.emplace_back(value);
    }
    if (commands.size() != 1 || commands[0].ends_with('\\') || commands[0].find("chronyd") == std::string::npos)
        return failed(FailureCode::unit_has_other_command, {unit});
    return commands[0];
}

Result<> reload(const Machine& machine) {
    const auto result = systemctl(machine.execute, {"daemon-reload"});
    return succeeded(result) ? Result<>() : failed(FailureCode::units_not_read_again, {}, last_words(result));
}

Result<> restart(const Machine& machine, const std::string& unit) {
    return manage_unit(machine.execute, {"try-restart", unit}, FailureCode::cannot_restart_unit);
}

Result<> write_clock_option(const Machine& machine, const std::string& unit) {
    return command_of(machine, unit).and_then([&](const std::string& command) {
        const auto text = fmt::format("{}ExecStart=\nExecStart={} -x\n", heading, command);
        return install_text(path_of(machine, unit, clock_name), text, machine.rules);
    });
}

// Whether it was there.
Result<bool> remove_option(const Machine& machine, const std::string& unit, const char* name) {
    const auto path = path_of(machine, unit, name);
    const bool was_there = is_there(path);
    if (was_there)
        if (const auto removed = remove_item(path, machine.rules); !removed)
            return tl::unexpected(removed.error());
    (void)::rmdir(folder_of(machine, unit).c_str()); // stays where the administrator keeps more in it
    return was_there;
}

Result<std::string> leave_clock_alone(const Machine& machine, const UnitStatus& status) {
    const auto unit = status["Id"];
    const auto written = write_clock_option(machine, unit).and_then([&] { return reload(machine); });
    if (!written)
        return tl::unexpected(written.error());
    const auto restarted = restart(machine, unit);
    if (restarted)
        return fmt::format("{} leaves the clock alone.", unit);
    (void)remove_option(machine, unit, clock_name); // the first failure is the one to tell
    (void)reload(machine);
    if (status.is_up())
        (void)systemctl(machine.execute, {"start", unit});
    return tl::unexpected(restarted.error());
}

Result<std::string> adjust_again(const Machine& machine, const std::string& unit) {
    return remove_option(machine, unit, clock_name)
        .and_then([&](bool removed) {
            return reload(machine).and_then([&] { return removed ? restart(machine, unit) : Result<>(); });
        })
        .map([&] { return fmt::format("{} adjusts the clock.", unit); });
}

} // namespace

Result<std::string> adjust_clock(const Machine& machine, bool on) {
    return find_unit(machine).and_then([&](const UnitStatus& status) {
        return on ? adjust_again(machine, status["Id"]) : leave_clock_alone(machine, status);
    });
}

Result<std::string> open_log_folder(const Machine& machine) {
    return find_unit(machine).and_then([&](const UnitStatus& status) {
        const auto unit = status["Id"];
        return install_text(path_of(machine, unit, logs_name), std::string(heading) + "LogsDirectoryMode=0755\n",
                            machine.rules)
            .and_then([&] { return reload(machine); })
            .map([&] { return fmt::format("{} lets everybody read its logs.", unit); });
    });
}

Result<> renew_options(const Machine& machine) {
    const auto status = find_unit(machine);
    if (!status || !is_there(path_of(machine, (*status)["Id"], clock_name)))
        return {};
    const auto unit = (*status)["Id"];
    return write_clock_option(machine, unit).and_then([&] { return reload(machine); }).and_then([&] {
        return restart(machine, unit);
    });
}

Result<> remove_options(const Machine& machine) {
    for (const std::string unit : {"chrony.service", "chronyd.service"}) {
        const auto clock = remove_option(machine, unit, clock_name);
        const auto logs = clock ? remove_option(machine, unit, logs_name) : clock;
        auto done = logs ? Result<>() : tl::unexpected(logs.error());
        if (done && (*clock || *logs))
            done = reload(machine);
        if (done && *clock)
            done = restart(machine, unit);
        if (!done)
            return done;
    }
    return {};
}

} // namespace tickervantage
