#include "cli/admin/admin_arguments.h"

#include <CLI/CLI.hpp>

namespace tickervantage {
namespace {

const char* description_of(AdminJob job) {
    switch (job) {
    case AdminJob::install:
        return "Install chrony and its services";
    case AdminJob::uninstall:
        return "Remove chrony and its services; configuration and logs stay";
    case AdminJob::start:
        return "Start chronyd";
    case AdminJob::stop:
        return "Stop chronyd";
    case AdminJob::wake_tool:
        return "Install or remove chronywake, as the setting install_wake has it";
    case AdminJob::run_wake:
        return "Have chronywake correct the clock once";
    case AdminJob::install_config:
        return "Install a configuration and restart chronyd; the former one comes back when it dies";
    case AdminJob::restore_config:
        return "Bring back a configuration that was installed before, or list them";
    case AdminJob::install_tempcomp:
        return "Have chronyd compensate for the temperature by a table of points; what was there comes back when it "
               "dies";
    case AdminJob::remove_tempcomp:
        return "Take back the compensation for the temperature";
    case AdminJob::rotate_logs:
        return "Rotate chrony's logs now";
    case AdminJob::log_permission:
        return "Let everybody read the tracking log";
    case AdminJob::restart_gpsd:
        return "Restart the GPS daemon";
    case AdminJob::remove_old:
        return "Remove the services of older installations";
    case AdminJob::synchronise:
        return "Set the clock once from one server";
    case AdminJob::step:
        return "Step the clock";
    case AdminJob::running_check:
        return "List the chronyd processes";
    case AdminJob::adjust_clock:
        return "Have chronyd adjust the clock or leave it alone, as the setting adj_system has it";
    }
    return "";
}

void add_own_options(CLI::App& command, AdminJob job, AdminArguments& arguments) {
    if (job == AdminJob::install_config)
        command.add_option("FILE", arguments.file, "the configuration")->required();
    if (job == AdminJob::install_tempcomp) {
        command.add_option("FILE", arguments.file, "the points, as tickerctl tempcomp writes them")->required();
        command.add_option("--sensor", arguments.sensor, "the sensor that they are for; default: the only one");
    }
    if (job == AdminJob::restore_config) {
        auto* number = command.add_option("NUMBER", arguments.number, "of the configuration; without: list them");
        command.add_flag("--list", arguments.list, "list them: number, date, user, and why");
        command.add_flag("--diff", arguments.difference, "show how it differs from the installed one, and do nothing")
            ->needs(number);
    }
    if (job == AdminJob::step)
        command.add_option("OFFSET", arguments.offset_seconds, "seconds; negative: back")->required();
    if (job != AdminJob::synchronise)
        return;
    command.add_option("SERVER", arguments.server, "a name or an address")->required();
    command.add_option("--timeout", arguments.timeout_seconds, "seconds, 1 to 120; default: as in the settings")
        ->check(CLI::Range(1, 120));
    command.add_flag("--no-restart", arguments.no_restart, "leave chronyd stopped afterwards");
}

} // namespace

void add_admin_jobs(CLI::App& admin, AdminArguments& arguments, bool& json) {
    admin.require_subcommand(1);
    admin.add_flag("--dry-run", arguments.dry_run, "print what would be asked of root, in order, and ask nothing");
    admin
        .add_option_function<std::string>(
            "--services",
            [&arguments](const std::string& name) {
                arguments.form = name == "launchd" ? ServiceForm::launchd : ServiceForm::systemd;
            },
            "systemd or launchd; default: this machine's")
        ->check(CLI::Validator(
            [](const std::string& name) {
                return name == "systemd" || name == "launchd" ? "" : "give systemd or launchd";
            },
            ""));
    admin.add_flag("--json", json, "one JSON document");
    for (const auto& entry : all_admin_jobs()) {
        auto* command = admin.add_subcommand(std::string(entry.name), description_of(entry.job));
        command->fallthrough(); // the options above may stand behind the job
        command->callback([&arguments, job = entry.job] { arguments.job = job; });
        add_own_options(*command, entry.job, arguments);
    }
}

} // namespace tickervantage
