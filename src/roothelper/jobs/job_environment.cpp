#include "roothelper/jobs/job_environment.h"

#include "roothelper/grammar/wake_arguments.h"
#include "roothelper/jobs/daemon_watch.h"
#include "roothelper/jobs/kept_configurations.h"

#include <filesystem>

namespace tickervantage {
namespace {

std::vector<std::string> wake_options(const PreferencesGeneral& general) {
    return wake_service_arguments({.make_thresh = general.make_thresh,
                                   .make_limit = static_cast<int>(general.make_limit),
                                   .burst_good = static_cast<int>(general.burst_good),
                                   .burst_max = static_cast<int>(general.burst_max),
                                   .burst_netmask = general.burst_netmask,
                                   .chronyc = general.chronyc,
                                   .socket = {}});
}

bool file_exists(const std::string& path) {
    std::error_code ignored; // what cannot be looked at counts as missing
    return std::filesystem::exists(path, ignored);
}

// The bundle's chronyd comes last: it is the one that no security policy confines.
ConfigError check_syntax(const JobMachine& machine, const std::string& text) {
    const auto chronyds = [&machine] {
        auto found = executables("chronyd", machine.search_path);
        found.push_back(machine.paths.bundle_program("chronyd"));
        return found;
    };
    return checkSyntax({.execute = machine.execute,
                        .chronyds = chronyds,
                        .replace_file = machine.replace_file,
                        .temporary = machine.paths.temporary},
                       text);
}

std::string find_chronywake(const JobMachine& machine) {
    const auto found = executables("chronywake", machine.search_path);
    return found.empty() ? std::string() : found.front();
}

} // namespace

JobSetting make_job_setting(const PreferencesGeneral& general, const PreferencesAdvanced& advanced, const Paths& paths,
                            ServiceForm form) {
    return {.config = general.config,
            .chronyc = general.chronyc,
            .chronyd = general.chronyd,
            .chronywake = general.chronywake,
            .install_wake = general.install_wake,
            .adj_system = general.adj_system,
            .restart_gpsd = advanced.restart_gpsd,
            .wake_options = wake_options(general),
            .bundle = paths.bundle,
            .temporary = paths.temporary,
            .form = form};
}

JobProbes make_job_probes(const JobMachine& machine) {
    const DaemonWatch watch{.execute = machine.execute, .form = machine.form, .pause = machine.pause};
    return {.file_exists = file_exists,
            .read_file = machine.read_file,
            .file_names = file_names_in,
            .check_syntax = [machine](const std::string& text) { return check_syntax(machine, text); },
            .find_chronywake = [machine] { return find_chronywake(machine); },
            .daemon_survives = [watch](const std::string& unit) { return watch.daemon_survives(unit); },
            .started_daemon = [look = StartedDaemonLook{machine.execute, file_exists, machine.read_file}](
                                  const std::string& unit) { return look.started_daemon(unit); },
            .filters_calls =
                [machine] {
                    const auto said =
                        machine.execute.run({.program = machine.paths.bundle_program("chronyd"), .arguments = {"-v"}});
                    return said.output.find("+SCFILTER") != std::string::npos;
                }};
}

} // namespace tickervantage
