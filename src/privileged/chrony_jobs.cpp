#include "privileged/chrony_jobs.h"

#include "config/configuration.h"
#include "privileged/old_installation.h"

#include <fmt/format.h>

#include <utility>

namespace tickervantage {
namespace {

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
    return daemon_service(m_setting.chronyd, m_setting.config, m_setting.adj_system);
}

ServiceDescription ChronyJobs::wake() const {
    return wake_service(m_setting.chronywake, m_setting.wake_options);
}

JobResult ChronyJobs::cannot_write() const {
    return refusal(fmt::format("The files to be installed cannot be written to {}.", m_setting.temporary));
}

void ChronyJobs::run(const std::vector<ServiceLine>& lines) {
    for (const auto& line : lines) {
        (void)m_steps.execute(line.command);
        if (line.pause_seconds > 0)
            m_steps.sleep(line.pause_seconds);
    }
}

void ChronyJobs::stop_daemon() {
    (void)m_steps.execute(m_unit.empty() ? m_tool.verb("stopchrony") : stop_unit_line(m_unit));
}

void ChronyJobs::start_daemon() {
    m_start_reply = m_steps.execute(m_unit.empty() ? m_tool.verb("startchrony") : start_unit_line(m_unit));
}

std::string ChronyJobs::install_item(const std::string& source, const std::string& destination, const char* mode,
                                     bool with_parent) {
    const std::string folder = with_parent ? folder_of(destination) : std::string();
    if (!folder.empty())
        (void)m_steps.execute(m_tool.create_parent(folder));
    return m_steps.execute(m_tool.install_item(source, destination, mode));
}

void ChronyJobs::install_program(const std::string& source, const std::string& destination) {
    (void)install_item(source, destination, SupportTool::program_mode, true);
}

int ChronyJobs::install_service(const ServiceDescription& service, bool with_parent) {
    for (const auto& file : definition_files(m_setting.form, service)) {
        const std::string temporary = m_setting.temporary + file.temporary;
        if (m_steps.write(temporary, file.text) != 0)
            return -1;
        (void)install_item(temporary, file.path, SupportTool::file_mode, with_parent);
    }
    run(enable_lines(m_setting.form, service));
    return 0;
}

void ChronyJobs::remove_service(const ServiceDescription& service) {
    for (const auto& file : definition_files(m_setting.form, service))
        (void)m_steps.execute(m_tool.remove_item(file.path));
}

void ChronyJobs::prepare_configuration(const std::string& text) {
    const std::string user = directive(text, "user");
    if (!user.empty() && user != "root")
        (void)m_steps.execute(m_tool.add_user(user));
    for (const char* name : {"logdir", "dumpdir"})
        if (const std::string folder = directive(text, name); !folder.empty())
            (void)m_steps.execute(m_tool.create_directory(folder));
    if (const std::string socket = directive(text, "bindcmdaddress"); !socket.empty())
        (void)m_steps.execute(m_tool.remove_item(socket)); // a stale one
}

std::string ChronyJobs::ready_configuration() {
    if (m_probes.file_exists(m_setting.config))
        return m_probes.read_file(m_setting.config).value_or("");
    const std::string source = bundle_resource("chrony.conf");
    const auto text = m_probes.read_file(source);
    if (!text || !m_probes.check_syntax(*text).passed())
        return {};
    (void)install_item(source, m_setting.config, SupportTool::file_mode, true);
    prepare_configuration(*text);
    return *text;
}

int ChronyJobs::install_rotation(const std::string& configuration) {
    const std::string folder = directive(configuration, "logdir");
    const auto service = rotation_service(script(), m_setting.chronyc, folder);
    if (!folder.empty() && install_service(service, false) != 0)
        return -1;
    (void)install_item(bundle_resource("chronylogrotate.sh"), script(), SupportTool::program_mode, false);
    return 0;
}

int ChronyJobs::place_wake_tool() {
    if (m_setting.install_wake) {
        install_program(bundle_program("chronywake"), m_setting.chronywake);
        return install_service(wake(), false);
    }
    run(disable_lines(m_setting.form, wake()));
    remove_service(wake());
    (void)m_steps.execute(m_tool.remove_item(m_setting.chronywake));
    run(reload_lines(m_setting.form));
    return 0;
}

JobResult ChronyJobs::install() {
    if (!m_unit.empty())
        return refusal("The preferences point to the distribution's chrony, which is installed already.");
    stop_daemon();
    const std::string configuration = ready_configuration();
    if (install_service(daemon(), true) != 0)
        return cannot_write();
    install_program(bundle_program("chronyd"), m_setting.chronyd);
    install_program(bundle_program("chronyc"), m_setting.chronyc);
    if (install_rotation(configuration) != 0 || place_wake_tool() != 0)
        return cannot_write();
    return missing_after({m_setting.chronyd, definition_path(m_setting.form, daemon_label), m_setting.chronyc});
}

// No answer of a single command is relied on, only what came of them all.
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
        run(disable_lines(m_setting.form, service));
    for (const auto& service : {daemon(), rotation, wake()})
        remove_service(service);
    for (const auto& path : {m_setting.chronyd, m_setting.chronyc, m_setting.chronywake, script()})
        (void)m_steps.execute(m_tool.remove_item(path));
    run(reload_lines(m_setting.form));
    return {};
}

JobResult ChronyJobs::start() {
    start_daemon();
    return m_setting.restart_gpsd ? restart_gpsd() : JobResult{};
}

JobResult ChronyJobs::stop() {
    stop_daemon();
    return {};
}

JobResult ChronyJobs::wake_tool() {
    (void)m_steps.execute(m_tool.verb("stopwake"));
    if (place_wake_tool() != 0)
        return cannot_write();
    if (m_setting.install_wake)
        (void)m_steps.execute(m_tool.verb("startwake"));
    return {};
}

JobResult ChronyJobs::run_chronywake() {
    const std::string program = m_probes.find_chronywake();
    if (program.empty())
        return refusal("There is no chronywake in the folders of programs.");
    return {.done = true, .sentence = {}, .output = m_steps.execute(program)};
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
    return {.done = true, .sentence = {}, .output = m_steps.execute(m_tool.rotate_logs(script(), folder))};
}

// The folder as well: a file in a folder that nobody may enter cannot be read, whatever its own mode is.
JobResult ChronyJobs::log_permission() {
    const std::string folder = log_folder();
    if (folder.empty())
        return refusal("The configuration names no folder of logs.");
    if (m_setting.form == ServiceForm::systemd)
        (void)m_steps.execute("chmod 0755 " + folder);
    (void)m_steps.execute("chmod 0755 " + folder + "/tracking.log");
    return {};
}

JobResult ChronyJobs::restart_gpsd() {
    if (m_probes.file_exists(definition_path(m_setting.form, gpsd_label)))
        run(restart_lines(m_setting.form, gpsd_label));
    return {};
}

JobResult ChronyJobs::remove_old() {
    for (const auto& label : old_installation_labels())
        if (m_probes.file_exists(definition_path(m_setting.form, label)))
            run(removal_lines(m_setting.form, label));
    return {};
}

JobResult ChronyJobs::step(double offset_seconds) {
    if (offset_seconds == 0)
        return {};
    return {.done = true, .sentence = {}, .output = m_steps.execute(m_tool.step_time(offset_seconds))};
}

JobResult ChronyJobs::synchronise(const std::string& server, int timeout_seconds, bool restart) {
    stop_daemon();
    JobResult result;
    result.output = m_steps.execute(synchronise_line(m_setting.chronyd, server, timeout_seconds));
    if (restart)
        start_daemon();
    return result;
}

JobResult ChronyJobs::running_check() {
    return {.done = true, .sentence = {}, .output = m_steps.execute(running_check_line)};
}

std::string synchronise_line(const std::string& chronyd, const std::string& server, int timeout_seconds) {
    return fmt::format(R"(/bin/sh -c '{} -t {} -q "server {} iburst"' 2>&1)", chronyd, timeout_seconds, server);
}

} // namespace tickervantage
