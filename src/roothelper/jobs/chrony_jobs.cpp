#include "roothelper/jobs/chrony_jobs.h"

#include "base/failure_codes.h"
#include "chrony/configuration/configuration.h"
#include "roothelper/grammar/wake_arguments.h"
#include "roothelper/jobs/old_installation.h"
#include "roothelper/jobs/synchronize.h"

#include <fmt/format.h>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* distribution_log_folder = "/var/log/chrony"; // of its unit, beside the one that the text names

std::vector<std::string> wake_options(const PreferencesGeneral& general) {
    return wake_service_arguments({.make_thresh = general.make_thresh,
                                   .make_limit = static_cast<int>(general.make_limit),
                                   .burst_good = static_cast<int>(general.burst_good),
                                   .burst_max = static_cast<int>(general.burst_max),
                                   .burst_netmask = general.burst_netmask,
                                   .chronyc = general.chronyc,
                                   .socket = {}});
}

} // namespace

ChronyJobs::ChronyJobs(JobSetting setting, const JobMachine& machine, JobSteps& steps)
    : m_setting(std::move(setting)), m_machine(machine),
      m_commands(m_setting.bundle, m_setting.temporary, m_setting.form, steps),
      m_unit(m_setting.form == ServiceForm::systemd ? distribution_unit(m_setting.chronyd, machine.looks_for_files())
                                                    : std::string()) {}

std::string ChronyJobs::script() const {
    return folder_of(m_setting.chronyc) + "/chronylogrotate.sh";
}

ServiceDescription ChronyJobs::daemon() const {
    const bool filters = m_setting.form == ServiceForm::systemd && m_machine.filters_calls();
    return daemon_service(m_setting.chronyd, m_setting.config, m_setting.adj_system, filters);
}

void ChronyJobs::guard() {
    (void)m_commands.attempt(m_commands.tool().verb("guardchrony"));
}

Result<> ChronyJobs::resumed(Result<> outcome) {
    if (!outcome)
        (void)m_commands.attempt(m_commands.tool().verb("resumechrony"));
    return outcome;
}

void ChronyJobs::stop_daemon() {
    (void)m_commands.run(m_unit.empty() ? m_commands.tool().verb("stopchrony") : stop_unit_line(m_unit));
}

void ChronyJobs::start_daemon() {
    m_start_reply =
        m_commands.attempt(m_unit.empty() ? m_commands.tool().verb("startchrony") : start_unit_line(m_unit));
}

Result<> ChronyJobs::started() {
    if (m_start_reply.outcome)
        return {};
    const std::string complaint = daemon_complaint();
    return because(FailureCode::chronyd_not_started,
                   complaint.empty() ? m_start_reply.outcome.error() : said_by_others(complaint));
}

Result<> ChronyJobs::start() {
    start_daemon();
    Result<> outcome = started();
    Result<> gpsd = m_setting.restart_gpsd ? restart_gpsd_if_there() : Result<>();
    return outcome ? gpsd : outcome;
}

Result<> ChronyJobs::stop() {
    stop_daemon();
    return m_commands.outcome(FailureCode::chronyd_not_stopped);
}

Result<> ChronyJobs::run_chronywake() {
    const std::string program = m_machine.find_chronywake();
    if (program.empty())
        return failed(FailureCode::no_chronywake);
    return with_output(program, FailureCode::chronywake_failed);
}

Result<> ChronyJobs::with_output(const std::string& command, FailureCode code) {
    m_output = m_commands.run(command).text;
    return m_commands.outcome(code);
}

std::string ChronyJobs::log_folder() const {
    return directive_in(m_machine.read_file(m_setting.config).value_or(""), "logdir");
}

Result<> ChronyJobs::rotate_logs() {
    const std::string folder = log_folder();
    if (folder.empty())
        return failed(FailureCode::no_log_folder);
    if (!m_unit.empty())
        return failed(FailureCode::distribution_rotates);
    return with_output(m_commands.tool().rotate_logs(script(), folder), FailureCode::logs_not_rotated);
}

// The folder as well: a file in a folder that nobody may enter cannot be read, whatever its own mode is.
Result<> ChronyJobs::log_permission() {
    const std::string folder = log_folder();
    if (folder.empty())
        return failed(FailureCode::no_log_folder);
    if (!m_unit.empty() && folder == distribution_log_folder)
        (void)m_commands.run(m_commands.tool().verb("openlogs")); // its unit sets the folder's mode at every start
    if (m_setting.form == ServiceForm::systemd)
        (void)m_commands.run("chmod 0755 " + folder);
    (void)m_commands.run("chmod 0755 " + folder + "/tracking.log");
    return m_commands.outcome(FailureCode::log_not_readable);
}

Result<> ChronyJobs::adjust_clock() {
    if (!m_unit.empty()) {
        (void)m_commands.run(m_commands.tool().adjust_clock(m_setting.adj_system));
    } else {
        if (!m_machine.file_exists(definition_path(m_setting.form, daemon_label)))
            return {}; // an installation will go by the setting
        if (auto placed = m_commands.place_service(daemon(), false); !placed)
            return placed;
        m_commands.run(renewal_lines(m_setting.form, daemon_label));
    }
    return m_commands.outcome(FailureCode::clock_treated_as_before);
}

Result<> ChronyJobs::restart_gpsd() {
    if (!m_machine.file_exists(definition_path(m_setting.form, gpsd_label)))
        return failed(FailureCode::no_gps_daemon);
    return restart_gpsd_if_there();
}

Result<> ChronyJobs::restart_gpsd_if_there() {
    if (m_machine.file_exists(definition_path(m_setting.form, gpsd_label)))
        m_commands.run(restart_lines(m_setting.form, gpsd_label));
    return m_commands.outcome(FailureCode::gps_daemon_not_restarted);
}

Result<> ChronyJobs::remove_old() {
    for (const auto& label : old_installation_labels())
        if (m_machine.file_exists(definition_path(m_setting.form, label)))
            m_commands.run(removal_lines(m_setting.form, label));
    return m_commands.outcome(FailureCode::old_not_removed);
}

Result<> ChronyJobs::step(double offset_seconds) {
    if (offset_seconds == 0)
        return {};
    return with_output(m_commands.tool().step_time(offset_seconds), FailureCode::clock_not_stepped);
}

Result<> ChronyJobs::synchronise(const std::string& server, int timeout_seconds, bool restart) {
    if (!is_server_name(server))
        return failed(FailureCode::no_server_name);
    if (restart)
        guard();
    stop_daemon();
    const StepReply reply = m_commands.attempt(synchronise_line(m_setting.chronyd, server, timeout_seconds));
    m_output = reply.text;
    Result<> outcome;
    if (restart) {
        start_daemon();
        outcome = started();
    }
    return reply.outcome ? outcome : failed(FailureCode::clock_not_synchronised);
}

Result<> ChronyJobs::running_check() {
    return with_output(running_check_line, FailureCode::processes_not_listed);
}

std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds) {
    return fmt::format(R"(/bin/sh -c '{} -t {} -q "server {} iburst"' 2>&1)", chronyd, timeout_seconds, server);
}

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

} // namespace tickervantage
