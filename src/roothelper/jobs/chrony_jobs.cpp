#include "roothelper/jobs/chrony_jobs.h"

#include "chrony/configuration/configuration.h"
#include "roothelper/jobs/old_installation.h"
#include "roothelper/jobs/synchronize.h"

#include <fmt/format.h>

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* distribution_log_folder = "/var/log/chrony"; // of its unit, beside the one that the text names

std::string folder_of(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string directive(const std::string& configuration, const char* name) {
    Configuration map;
    map.read(configuration);
    return map.value(name).value_or("");
}

JobResult refusal(std::string sentence) {
    return {.done = false, .sentence = std::move(sentence), .output = {}};
}

} // namespace

ChronyJobs::ChronyJobs(JobSetting setting, JobProbes probes, JobSteps& steps)
    : m_setting(std::move(setting)), m_probes(std::move(probes)), m_steps(steps), m_tool(m_setting.bundle),
      m_unit(m_setting.form == ServiceForm::systemd ? distribution_unit(m_setting.chronyd, m_probes.file_exists)
                                                    : std::string()) {}

std::string ChronyJobs::bundle_program(const char* name) const {
    return m_setting.bundle + "/Contents/MacOS/" + name;
}

std::string ChronyJobs::bundle_resource(const char* name) const {
    return m_setting.bundle + "/Contents/Resources/" + name;
}

std::string ChronyJobs::script() const {
    return folder_of(m_setting.chronyc) + "/chronylogrotate.sh";
}

ServiceDescription ChronyJobs::daemon() const {
    const bool filters = m_setting.form == ServiceForm::systemd && m_probes.filters_calls && m_probes.filters_calls();
    return daemon_service(m_setting.chronyd, m_setting.config, m_setting.adj_system, filters);
}

ServiceDescription ChronyJobs::wake() const {
    return wake_service(m_setting.chronywake, m_setting.wake_options);
}

JobResult ChronyJobs::cannot_write() const {
    return refusal(fmt::format("The files to be installed cannot be written to {}.", m_setting.temporary));
}

StepReply ChronyJobs::run(const std::string& command) {
    auto reply = m_steps.execute(command);
    if (!reply.is_done && !m_failure)
        m_failure = reply.text;
    return reply;
}

void ChronyJobs::run(const std::vector<ServiceLine>& lines) {
    for (const auto& line : lines) {
        (void)run(line.command);
        if (line.pause_seconds > 0)
            m_steps.sleep(line.pause_seconds);
    }
}

void ChronyJobs::attempt(const std::vector<ServiceLine>& lines) {
    const auto failure = m_failure;
    run(lines);
    m_failure = failure;
}

JobResult ChronyJobs::outcome(const char* words) const {
    return m_failure ? refusal(job_sentence(words, *m_failure)) : JobResult{};
}

void ChronyJobs::guard() {
    attempt(m_tool.verb("guardchrony"));
}

JobResult ChronyJobs::resumed(JobResult result) {
    if (!result.done)
        attempt(m_tool.verb("resumechrony"));
    return result;
}

void ChronyJobs::stop_daemon() {
    (void)run(m_unit.empty() ? m_tool.verb("stopchrony") : stop_unit_line(m_unit));
}

void ChronyJobs::start_daemon() {
    m_start_reply = m_steps.execute(m_unit.empty() ? m_tool.verb("startchrony") : start_unit_line(m_unit));
}

JobResult ChronyJobs::started() {
    if (m_start_reply.is_done)
        return {};
    const std::string complaint = daemon_complaint();
    return refusal(job_sentence("chronyd was not started", complaint.empty() ? m_start_reply.text : complaint));
}

StepReply ChronyJobs::install_item(const std::string& source, const std::string& destination, const char* mode,
                                   bool with_parent) {
    const std::string folder = with_parent ? folder_of(destination) : std::string();
    if (!folder.empty())
        (void)run(m_tool.create_parent(folder));
    return run(m_tool.install_item(source, destination, mode));
}

void ChronyJobs::install_program(const std::string& source, const std::string& destination) {
    (void)install_item(source, destination, SupportTool::program_mode, true);
}

int ChronyJobs::place_service(const ServiceDescription& service, bool with_parent) {
    for (const auto& file : definition_files(m_setting.form, service)) {
        const std::string temporary = m_setting.temporary + file.temporary;
        if (m_steps.write(temporary, file.text) != 0)
            return -1;
        (void)install_item(temporary, file.path, SupportTool::file_mode, with_parent);
    }
    return 0;
}

int ChronyJobs::install_service(const ServiceDescription& service, bool with_parent) {
    if (place_service(service, with_parent) != 0)
        return -1;
    run(enable_lines(m_setting.form, service));
    return 0;
}

void ChronyJobs::remove_service(const ServiceDescription& service) {
    for (const auto& file : definition_files(m_setting.form, service))
        (void)run(m_tool.remove_item(file.path));
}

// What fails here the daemon complains of when it is started.
void ChronyJobs::prepare_configuration(const std::string& text) {
    const std::string user = directive(text, "user");
    if (!user.empty() && user != "root")
        attempt(m_tool.add_user(user));
    for (const char* name : {"logdir", "dumpdir"})
        if (const std::string folder = directive(text, name); !folder.empty())
            attempt(m_tool.create_directory(folder));
    if (const std::string socket = directive(text, "bindcmdaddress"); !socket.empty())
        attempt(m_tool.remove_item(socket)); // a stale one
}

JobResult ChronyJobs::find_configuration(std::string& text) {
    if (m_probes.file_exists(m_setting.config)) {
        text = m_probes.read_file(m_setting.config).value_or("");
        return {};
    }
    const std::string source = bundle_resource("chrony.conf");
    const auto found = m_probes.read_file(source);
    if (!found)
        return refusal(fmt::format("There is no configuration to be installed: {} cannot be read.", source));
    if (const ConfigError error = m_probes.check_syntax(*found); !error.passed())
        return refusal(not_accepted(error));
    text = *found;
    return {};
}

int ChronyJobs::install_rotation(const std::string& configuration) {
    const std::string folder = directive(configuration, "logdir");
    const auto service = rotation_service(script(), m_setting.chronyc, folder);
    if (!folder.empty() && install_service(service, false) != 0)
        return -1;
    (void)install_item(bundle_resource("chronylogrotate.sh"), script(), SupportTool::program_mode, false);
    return 0;
}

// The service manager complains of what is not there.
void ChronyJobs::disable_service(const ServiceDescription& service) {
    if (m_probes.file_exists(definition_path(m_setting.form, service.label)))
        attempt(disable_lines(m_setting.form, service));
}

int ChronyJobs::place_wake_tool() {
    if (m_setting.install_wake) {
        install_program(bundle_program("chronywake"), m_setting.chronywake);
        return install_service(wake(), false);
    }
    disable_service(wake());
    remove_service(wake());
    (void)run(m_tool.remove_item(m_setting.chronywake));
    run(reload_lines(m_setting.form));
    return 0;
}

JobResult ChronyJobs::judge_installation() {
    struct Item {
        std::string source;
        std::string destination;
        const char* mode;
    };
    std::vector<Item> items{{bundle_program("chronyd"), m_setting.chronyd, SupportTool::program_mode},
                            {bundle_program("chronyc"), m_setting.chronyc, SupportTool::program_mode}};
    if (!m_probes.file_exists(m_setting.config))
        items.push_back({bundle_resource("chrony.conf"), m_setting.config, SupportTool::file_mode});
    for (const auto& [source, destination, mode] : items)
        (void)run(m_tool.check_item(source, destination, mode));
    return outcome("chrony was not installed");
}

JobResult ChronyJobs::install() {
    if (!m_unit.empty())
        return refusal("The preferences point to the distribution's chrony, which is installed already.");
    std::string configuration;
    if (auto found = find_configuration(configuration); !found.done)
        return found;
    if (auto judged = judge_installation(); !judged.done)
        return judged;
    guard();
    stop_daemon();
    return resumed(install_all(configuration));
}

JobResult ChronyJobs::install_all(const std::string& configuration) {
    if (!m_probes.file_exists(m_setting.config) &&
        install_item(bundle_resource("chrony.conf"), m_setting.config, SupportTool::file_mode, true).is_done)
        prepare_configuration(configuration);
    if (install_service(daemon(), true) != 0)
        return cannot_write();
    install_program(bundle_program("chronyd"), m_setting.chronyd);
    install_program(bundle_program("chronyc"), m_setting.chronyc);
    if (install_rotation(configuration) != 0 || place_wake_tool() != 0)
        return cannot_write();
    if (auto missing = missing_after(
            {m_setting.config, m_setting.chronyd, definition_path(m_setting.form, daemon_label), m_setting.chronyc});
        !missing.done)
        return missing;
    if (m_setting.form == ServiceForm::systemd) // only now: a machine must not lose the one without gaining the other
        (void)run(m_tool.verb("displaceservices"));
    return outcome("chrony was not installed");
}

// Replies may say that all is well where nothing is there.
JobResult ChronyJobs::missing_after(const std::vector<std::string>& paths) const {
    for (const auto& path : paths)
        if (m_probes.carried_out && !m_probes.file_exists(path))
            return refusal(fmt::format("{} was not installed.", path));
    return {};
}

JobResult ChronyJobs::uninstall() {
    if (!m_unit.empty())
        return refusal("The preferences point to the distribution's chrony, which its package manager removes.");
    const auto rotation = rotation_service(script(), m_setting.chronyc, "");
    stop_daemon();
    for (const auto& service : {daemon(), rotation, wake()})
        disable_service(service);
    for (const auto& service : {daemon(), rotation, wake()})
        remove_service(service);
    for (const auto& path : {m_setting.chronyd, m_setting.chronyc, m_setting.chronywake, script()})
        (void)run(m_tool.remove_item(path));
    run(reload_lines(m_setting.form));
    if (m_setting.form == ServiceForm::systemd)
        (void)run(m_tool.verb("restoreservices"));
    return outcome("chrony was not removed as a whole");
}

JobResult ChronyJobs::start() {
    start_daemon();
    JobResult result = started();
    JobResult gpsd = m_setting.restart_gpsd ? restart_gpsd_if_there() : JobResult{};
    return result.done ? gpsd : result;
}

JobResult ChronyJobs::stop() {
    stop_daemon();
    return outcome("chronyd was not stopped");
}

JobResult ChronyJobs::wake_tool() {
    (void)run(m_tool.verb("stopwake"));
    if (place_wake_tool() != 0)
        return cannot_write();
    if (m_setting.install_wake)
        (void)run(m_tool.verb("startwake"));
    return outcome(m_setting.install_wake ? "chronywake was not installed" : "chronywake was not removed");
}

JobResult ChronyJobs::run_chronywake() {
    const std::string program = m_probes.find_chronywake();
    if (program.empty())
        return refusal("There is no chronywake in the folders of programs.");
    return with_output(program, "chronywake did not correct the clock");
}

JobResult ChronyJobs::with_output(const std::string& command, const char* words) {
    const StepReply reply = run(command);
    JobResult result = outcome(words);
    result.output = reply.text;
    return result;
}

std::string ChronyJobs::log_folder() const {
    return directive(m_probes.read_file(m_setting.config).value_or(""), "logdir");
}

JobResult ChronyJobs::rotate_logs() {
    const std::string folder = log_folder();
    if (folder.empty())
        return refusal("The configuration names no folder of logs.");
    if (!m_unit.empty())
        return refusal("The logs of the distribution's chrony are rotated by the distribution.");
    return with_output(m_tool.rotate_logs(script(), folder), "The logs were not rotated");
}

// The folder as well: a file in a folder that nobody may enter cannot be read, whatever its own mode is.
JobResult ChronyJobs::log_permission() {
    const std::string folder = log_folder();
    if (folder.empty())
        return refusal("The configuration names no folder of logs.");
    if (!m_unit.empty() && folder == distribution_log_folder)
        (void)run(m_tool.verb("openlogs")); // its unit sets the folder's mode at every start
    if (m_setting.form == ServiceForm::systemd)
        (void)run("chmod 0755 " + folder);
    (void)run("chmod 0755 " + folder + "/tracking.log");
    return outcome("The tracking log was not made readable");
}

JobResult ChronyJobs::adjust_clock() {
    if (!m_unit.empty()) {
        (void)run(m_tool.adjust_clock(m_setting.adj_system));
    } else {
        if (!m_probes.file_exists(definition_path(m_setting.form, daemon_label)))
            return {}; // an installation will go by the setting
        if (place_service(daemon(), false) != 0)
            return cannot_write();
        run(renewal_lines(m_setting.form, daemon_label));
    }
    return outcome("chronyd still treats the clock as before");
}

JobResult ChronyJobs::restart_gpsd() {
    if (!m_probes.file_exists(definition_path(m_setting.form, gpsd_label)))
        return refusal("There is no service of a GPS daemon on this machine.");
    return restart_gpsd_if_there();
}

JobResult ChronyJobs::restart_gpsd_if_there() {
    if (m_probes.file_exists(definition_path(m_setting.form, gpsd_label)))
        run(restart_lines(m_setting.form, gpsd_label));
    return outcome("The GPS daemon was not restarted");
}

JobResult ChronyJobs::remove_old() {
    for (const auto& label : old_installation_labels())
        if (m_probes.file_exists(definition_path(m_setting.form, label)))
            run(removal_lines(m_setting.form, label));
    return outcome("The older installation was not removed as a whole");
}

JobResult ChronyJobs::step(double offset_seconds) {
    if (offset_seconds == 0)
        return {};
    return with_output(m_tool.step_time(offset_seconds), "The clock was not stepped");
}

JobResult ChronyJobs::synchronise(const std::string& server, int timeout_seconds, bool restart) {
    if (!is_server_name(server))
        return refusal("A server has a name or an address, without quotes or signs.");
    if (restart)
        guard();
    stop_daemon();
    const StepReply reply = m_steps.execute(synchronise_line(m_setting.chronyd, server, timeout_seconds));
    JobResult result;
    if (restart) {
        start_daemon();
        result = started();
    }
    if (!reply.is_done)
        result = refusal("The clock was not synchronised.");
    result.output = reply.text;
    return result;
}

JobResult ChronyJobs::running_check() {
    return with_output(running_check_line, "The processes could not be listed");
}

std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds) {
    return fmt::format(R"(/bin/sh -c '{} -t {} -q "server {} iburst"' 2>&1)", chronyd, timeout_seconds, server);
}

} // namespace tickervantage
