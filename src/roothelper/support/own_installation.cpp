#include "roothelper/support/own_installation.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "linux/small_file.h"
#include "roothelper/support/daemon_units.h"
#include "roothelper/support/distribution_options.h"
#include "roothelper/support/folders.h"
#include "roothelper/support/install_file.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <sys/stat.h>

#include <array>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::size_t largest_unit = 65536;

struct Program {
    std::string installed; // path
    std::string bundled;   // path in the bundle
    std::string service;   // that runs it all the time; empty: none does
};

std::string unit_path(const Machine& machine, const std::string& unit) {
    return machine.root + "/etc/systemd/system/" + unit;
}

bool is_there(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::vector<std::string> command_of(const Machine& machine, const std::string& label) {
    constexpr std::string_view key = "ExecStart=";
    std::vector<std::string> command;
    const FileReading unit = read_small_file(unit_path(machine, label + ".service"), largest_unit);
    for (const auto line : non_empty_lines(unit.bytes))
        if (line.starts_with(key))
            for (const auto word : words(line.substr(key.size())))
                command.emplace_back(word);
    return command;
}

// What packages own is not ours, whatever a unit says: also under the names that lead to /usr.
bool is_ours(std::string_view path) {
    const auto lies_in = [path](std::string_view folder) {
        return path.starts_with(folder);
    };
    return lies_in("/usr/local/") ||
           (lies_in("/") && !lies_in("/usr/") && !lies_in("/bin/") && !lies_in("/sbin/") && !lies_in("/lib"));
}

std::vector<Program> installed_programs(const Machine& machine) {
    const auto programs = machine.bundle + "/Contents/MacOS/";
    std::vector<Program> found;
    const auto add = [&](const std::string& path, const std::string& bundled, const std::string& service) {
        if (is_ours(path) && is_there(machine.root + path))
            found.push_back({path, bundled, service});
    };
    if (const auto daemon = command_of(machine, daemon_label); !daemon.empty())
        add(daemon[0], programs + "chronyd", daemon_label + std::string(".service"));
    std::string chronyc = "/usr/local/bin/chronyc";
    if (const auto rotation = command_of(machine, rotation_label); rotation.size() == 4) {
        add(rotation[1], machine.bundle + "/Contents/Resources/chronylogrotate.sh", {});
        chronyc = rotation[2];
    }
    if (const auto wake = command_of(machine, wake_label); !wake.empty())
        add(wake[0], programs + "chronywake", wake_label + std::string(".service"));
    if (!found.empty())
        add(chronyc, programs + "chronyc", {});
    return found;
}

std::vector<std::string> installed_units(const Machine& machine) {
    std::vector<std::string> units;
    for (const char* label : {daemon_label, rotation_label, wake_label})
        for (const char* ending : {".timer", ".service"})
            if (const auto unit = std::string(label) + ending; is_there(unit_path(machine, unit)))
                units.push_back(unit);
    return units;
}

// Whatever fails, the rest is still done; the first failure is told.
class Series {
public:
    void add(Result<> step) {
        if (m_done)
            m_done = std::move(step);
    }
    [[nodiscard]] Result<std::string> end(std::string success) const {
        return m_done.map([&] { return std::move(success); });
    }

private:
    Result<> m_done;
};

void remove_units(const Machine& machine, const std::vector<std::string>& units, Series& series) {
    for (const auto& unit : units) {
        series.add(manage_unit(machine.execute, {"disable", "--now", unit}, FailureCode::cannot_stop_unit));
        series.add(remove_item(unit_path(machine, unit), machine.rules));
    }
    (void)systemctl(machine.execute, {"daemon-reload"}); // forgotten at the next boot at the latest
}

} // namespace

Result<std::string> refresh_programs(const Machine& machine) {
    Series series;
    std::vector<std::string> replaced;
    for (const auto& program : installed_programs(machine)) {
        const auto path = machine.root + program.installed;
        if (!is_there(program.bundled) || same_files(path, program.bundled))
            continue;
        const auto installed = install_file({program.bundled, path, "root:wheel", "0755"}, machine.rules);
        series.add(installed);
        if (!installed)
            continue;
        replaced.push_back(program.installed);
        if (!program.service.empty())
            series.add(
                manage_unit(machine.execute, {"try-restart", program.service}, FailureCode::cannot_restart_unit));
    }
    series.add(renew_options(machine));
    return series.end(replaced.empty() ? "The installed programs are those of the bundle."
                                       : fmt::format("Replaced {}.", fmt::join(replaced, " and ")));
}

Result<std::string> remove_installation(const Machine& machine) {
    Series series;
    const auto units = installed_units(machine);
    const auto programs = installed_programs(machine);
    const bool displaced =
        is_there(machine.root + displaced_file) || is_there(unit_path(machine, daemon_label + std::string(".service")));
    if (!units.empty())
        remove_units(machine, units, series);
    for (const auto& program : programs)
        series.add(remove_item(machine.root + program.installed, machine.rules));
    series.add(remove_options(machine));
    if (displaced)
        series.add(restore_services(machine).map([](const std::string&) {}));
    return series.end(units.empty() ? "There is no installation of ours." : "The installation of chrony is removed.");
}

} // namespace tickervantage
