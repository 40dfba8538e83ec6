#include "roothelper/support/distribution_options.h"

#include "base/text_lines.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"
#include "roothelper/support/one_line.h"
#include "roothelper/support/unit_status.h"

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

int fail(std::string& sentence, std::string text) {
    sentence = std::move(text);
    return -1;
}

int find_unit(const Machine& machine, UnitStatus& status, std::string& sentence) {
    for (const char* unit : {"chrony.service", "chronyd.service"}) {
        if (look_at_unit(machine.execute, unit, status, sentence) != 0)
            return -1;
        if (status.is_there())
            return 0;
    }
    return fail(sentence, "The distribution's chrony is not installed.");
}

// "# /path" before each file in the service manager's listing.
bool is_file_name(std::string_view line) {
    return line.starts_with("# /") && line.find(' ', 2) == std::string_view::npos;
}

// The command that starts the daemon, as the unit and its drop-ins say it without ours.
int command_of(const Machine& machine, const std::string& unit, std::string& command, std::string& sentence) {
    const auto listing = systemctl(machine.execute, {"cat", "--no-pager", unit});
    if (!succeeded(listing))
        return fail(sentence, fmt::format("Cannot read {}: {}", unit, last_words(listing)));
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
        return fail(sentence, fmt::format("{} does not start chronyd by a single command line.", unit));
    command = commands[0];
    return 0;
}

int reload(const Machine& machine, std::string& sentence) {
    const auto result = systemctl(machine.execute, {"daemon-reload"});
    return succeeded(result) ? 0 : fail(sentence, "systemd cannot read its units again: " + last_words(result));
}

int restart(const Machine& machine, const std::string& unit, std::string& sentence) {
    const auto result = systemctl(machine.execute, {"try-restart", unit});
    return succeeded(result) ? 0 : fail(sentence, fmt::format("Cannot restart {}: {}", unit, last_words(result)));
}

int write_clock_option(const Machine& machine, const std::string& unit, std::string& sentence) {
    std::string command;
    if (command_of(machine, unit, command, sentence) != 0)
        return -1;
    const auto text = fmt::format("{}ExecStart=\nExecStart={} -x\n", heading, command);
    return install_text(path_of(machine, unit, clock_name), text, machine.rules, sentence);
}

// `removed` when it was there.
int remove_option(const Machine& machine, const std::string& unit, const char* name, bool& removed,
                  std::string& sentence) {
    const auto path = path_of(machine, unit, name);
    removed = is_there(path);
    if (removed && remove_item(path, machine.rules, sentence) != 0)
        return -1;
    (void)::rmdir(folder_of(machine, unit).c_str()); // stays where the administrator keeps more in it
    return 0;
}

int leave_clock_alone(const Machine& machine, const UnitStatus& status, std::string& sentence) {
    const auto unit = status["Id"];
    if (write_clock_option(machine, unit, sentence) != 0 || reload(machine, sentence) != 0)
        return -1;
    if (restart(machine, unit, sentence) == 0) {
        sentence = fmt::format("{} leaves the clock alone.", unit);
        return 0;
    }
    bool removed = false;
    std::string ignored; // the first failure is the one to tell
    (void)remove_option(machine, unit, clock_name, removed, ignored);
    (void)reload(machine, ignored);
    if (status.is_up())
        (void)systemctl(machine.execute, {"start", unit});
    return -1;
}

} // namespace

int adjust_clock(const Machine& machine, bool on, std::string& sentence) {
    UnitStatus status;
    bool removed = false;
    if (find_unit(machine, status, sentence) != 0)
        return -1;
    if (!on)
        return leave_clock_alone(machine, status, sentence);
    const auto unit = status["Id"];
    if (remove_option(machine, unit, clock_name, removed, sentence) != 0 || reload(machine, sentence) != 0 ||
        (removed && restart(machine, unit, sentence) != 0))
        return -1;
    sentence = fmt::format("{} adjusts the clock.", unit);
    return 0;
}

int open_log_folder(const Machine& machine, std::string& sentence) {
    UnitStatus status;
    if (find_unit(machine, status, sentence) != 0)
        return -1;
    const auto unit = status["Id"];
    const auto text = std::string(heading) + "LogsDirectoryMode=0755\n";
    if (install_text(path_of(machine, unit, logs_name), text, machine.rules, sentence) != 0 ||
        reload(machine, sentence) != 0)
        return -1;
    sentence = fmt::format("{} lets everybody read its logs.", unit);
    return 0;
}

int renew_options(const Machine& machine, std::string& sentence) {
    UnitStatus status;
    if (find_unit(machine, status, sentence) != 0 || !is_there(path_of(machine, status["Id"], clock_name)))
        return 0;
    if (write_clock_option(machine, status["Id"], sentence) != 0 || reload(machine, sentence) != 0)
        return -1;
    return restart(machine, status["Id"], sentence);
}

int remove_options(const Machine& machine, std::string& sentence) {
    bool clock = false;
    bool logs = false;
    for (const std::string unit : {"chrony.service", "chronyd.service"}) {
        if (remove_option(machine, unit, clock_name, clock, sentence) != 0 ||
            remove_option(machine, unit, logs_name, logs, sentence) != 0)
            return -1;
        if ((clock || logs) && reload(machine, sentence) != 0)
            return -1;
        if (clock && restart(machine, unit, sentence) != 0)
            return -1;
    }
    return 0;
}

} // namespace tickervantage
