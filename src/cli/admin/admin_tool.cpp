// `tickerctl admin`, put together for this machine.
#include "base/failure_codes.h"
#include "cli/admin/admin_command.h"
#include "cli/terminal.h"
#include "cli/tool.h"
#include "history/history_recorder.h"
#include "history/history_writer.h"
#include "linux/machine_sensors.h"
#include "roothelper/client/terminal_agent.h"
#include "roothelper/jobs/chrony_jobs.h"
#include "roothelper/jobs/sensor_place.h"
#include "roothelper/jobs/this_machine.h"
#include "settings/preferences.h"
#include "settings/settings_catalogue.h"

#include <cstdlib>
#include <ctime>
#include <iostream>

namespace tickervantage {
namespace {

ThisMachine machine_of(DaemonAccess& daemon, const Paths& paths, ServiceForm form) {
    const char* search_path = std::getenv("PATH"); // NOLINT(concurrency-mt-unsafe): nobody changes it
    return {daemon.execute(), paths, search_path == nullptr ? "" : search_path, form};
}

// The sensor of that name, or the only one.
Result<SensorPlace> chosen_sensor(const std::string& name) {
    MachineSensors sensors;
    const auto readings = sensors.read();
    std::string names;
    for (const SensorReading& one : readings) {
        if (one.name == name || (name.empty() && readings.size() == 1))
            return place_of_sensor(one.file, one.name);
        names += (names.empty() ? "" : ", ") + one.name;
    }
    if (readings.empty())
        return failed(FailureCode::no_sensor_here);
    return name.empty() ? failed(FailureCode::which_sensor, {names})
                        : failed(FailureCode::no_such_sensor, {name, names});
}

} // namespace

KeptCommand Tool::kept_command() {
    const ThisMachine machine = machine_of(m_daemon, m_paths, native_service_form);
    const std::string path = general().config;
    return {.kept = kept_configurations(machine, path),
            .installed = machine.read_file(path).value_or(""),
            .form = m_arguments.json ? OutputForm::json : OutputForm::text,
            .out = std::cout};
}

int Tool::find_kept_text(std::string& text) {
    const auto command = kept_command();
    const auto* one = find_kept(command.kept, m_arguments.admin.number.value_or(0));
    if (one == nullptr)
        return fail("No configuration has that number: tickerctl admin restore-config lists what there is.");
    text = one->text;
    return 0;
}

int Tool::show_kept() {
    const auto command = kept_command();
    if (!m_arguments.admin.difference) {
        command.list();
        return 0;
    }
    const auto* one = find_kept(command.kept, m_arguments.admin.number.value_or(0));
    if (one == nullptr)
        return fail("No configuration has that number: tickerctl admin restore-config lists what there is.");
    command.difference(*one);
    return 0;
}

int Tool::admin_request(AdminRequest& request) {
    const AdminArguments& asked = m_arguments.admin;
    request = {.job = asked.job,
               .server = asked.server,
               .timeout_seconds =
                   asked.timeout_seconds.value_or(static_cast<int>(load(m_settings, settings::sync_timeout))),
               .restart = !asked.no_restart && load(m_settings, settings::sync_restart_chronyd),
               .offset_seconds = asked.offset_seconds};
    if (asked.job == AdminJob::restore_config)
        return find_kept_text(request.configuration);
    if (asked.job != AdminJob::install_config && asked.job != AdminJob::install_tempcomp)
        return 0;
    auto text = machine_of(m_daemon, m_paths, asked.form).read_file(asked.file);
    if (!text)
        return fail("The file " + asked.file + " cannot be read.");
    if (asked.job == AdminJob::install_config) {
        request.configuration = std::move(*text);
        return 0;
    }
    const auto sensor = chosen_sensor(asked.sensor);
    if (!sensor)
        return fail(english(sensor.error()));
    request.compensation = {.points = std::move(*text), .name = asked.file, .sensor = *sensor};
    return 0;
}

int Tool::admin() {
    const AdminArguments& asked = m_arguments.admin;
    if (asked.job == AdminJob::restore_config && (asked.list || asked.difference || !asked.number))
        return show_kept();
    AdminRequest request;
    if (const int result = admin_request(request); result != 0)
        return result;
    const ServiceForm form = m_arguments.admin.form;
    ThisMachine machine = machine_of(m_daemon, m_paths, form);
    AdminCommand command{.setting = make_job_setting(general(), PreferencesAdvanced::load(m_settings), m_paths, form),
                         .machine = machine,
                         .form = m_arguments.json ? OutputForm::json : OutputForm::text,
                         .out = std::cout,
                         .err = std::cerr};
    if (m_arguments.admin.dry_run)
        return command.dry_run(request);
    if (form != native_service_form)
        return fail("Services of another system can be shown with --dry-run, not installed here.");
    if (m_arguments.demo)
        return fail("A demonstration leaves the system as it is; there is --dry-run.");
    const TerminalAgent agent;
    command.ended = [this](AdminJob job, const Result<>& outcome) {
        const auto told =
            HistoryWriter::add_beside(history_path(), job_event(std::time(nullptr), entry_of(job).name, outcome));
        if (!told && told.error().code != FailureCode::no_such_file) // nobody keeps a history here
            complain(english(told.error()));
    };
    return command.carry_out(request, m_daemon.actions());
}

} // namespace tickervantage
