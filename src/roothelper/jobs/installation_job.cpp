#include "roothelper/jobs/chrony_jobs.h"

#include "base/failure_codes.h"
#include "chrony/configuration/configuration.h"

namespace tickervantage {

std::string ChronyJobs::bundle_program(const char* name) const {
    return m_setting.bundle + "/Contents/MacOS/" + name;
}

std::string ChronyJobs::bundle_resource(const char* name) const {
    return m_setting.bundle + "/Contents/Resources/" + name;
}

ServiceDescription ChronyJobs::wake() const {
    return wake_service(m_setting.chronywake, m_setting.wake_options);
}

Result<std::string> ChronyJobs::find_configuration() const {
    if (m_machine.file_exists(m_setting.config))
        return m_machine.read_file(m_setting.config).value_or("");
    const std::string source = bundle_resource("chrony.conf");
    const auto found = m_machine.read_file(source);
    if (!found)
        return failed(FailureCode::no_configuration_to_install, {source});
    if (const ConfigError error = m_machine.check_syntax(*found); !error.passed())
        return tl::unexpected(not_accepted(error));
    return *found;
}

Result<> ChronyJobs::judge_installation() {
    struct Item {
        std::string source;
        std::string destination;
        const char* mode;
    };
    std::vector<Item> items{{bundle_program("chronyd"), m_setting.chronyd, SupportTool::program_mode},
                            {bundle_program("chronyc"), m_setting.chronyc, SupportTool::program_mode}};
    if (!m_machine.file_exists(m_setting.config))
        items.push_back({bundle_resource("chrony.conf"), m_setting.config, SupportTool::file_mode});
    for (const auto& [source, destination, mode] : items)
        (void)m_commands.run(m_commands.tool().check_item(source, destination, mode));
    return m_commands.outcome(FailureCode::chrony_not_installed);
}

Result<> ChronyJobs::install() {
    if (!m_unit.empty())
        return failed(FailureCode::distribution_installed);
    const auto configuration = find_configuration();
    if (!configuration)
        return tl::unexpected(configuration.error());
    if (auto judged = judge_installation(); !judged)
        return judged;
    guard();
    stop_daemon();
    return resumed(install_all(*configuration));
}

Result<> ChronyJobs::install_all(const std::string& configuration) {
    if (!m_machine.file_exists(m_setting.config) &&
        m_commands.install_item(bundle_resource("chrony.conf"), m_setting.config, SupportTool::file_mode, true).outcome)
        prepare_configuration(configuration);
    if (auto done = m_commands.install_service(daemon(), true); !done)
        return done;
    m_commands.install_program(bundle_program("chronyd"), m_setting.chronyd);
    m_commands.install_program(bundle_program("chronyc"), m_setting.chronyc);
    if (auto done = install_rotation(configuration); !done)
        return done;
    if (auto done = place_wake_tool(); !done)
        return done;
    if (auto there = present_after(
            {m_setting.config, m_setting.chronyd, definition_path(m_setting.form, daemon_label), m_setting.chronyc});
        !there)
        return there;
    if (m_setting.form == ServiceForm::systemd) // only now: a machine must not lose the one without gaining the other
        (void)m_commands.run(m_commands.tool().verb("displaceservices"));
    return m_commands.outcome(FailureCode::chrony_not_installed);
}

// Replies may say that all is well where nothing is there.
Result<> ChronyJobs::present_after(const std::vector<std::string>& paths) const {
    for (const auto& path : paths)
        if (m_commands.are_carried_out() && !m_machine.file_exists(path))
            return failed(FailureCode::not_installed_after_all, {path});
    return {};
}

Result<> ChronyJobs::install_rotation(const std::string& configuration) {
    const std::string folder = directive_in(configuration, "logdir");
    if (!folder.empty())
        if (auto done = m_commands.install_service(rotation_service(script(), m_setting.chronyc, folder), false); !done)
            return done;
    (void)m_commands.install_item(bundle_resource("chronylogrotate.sh"), script(), SupportTool::program_mode, false);
    return {};
}

// The service manager complains of what is not there.
void ChronyJobs::disable_service(const ServiceDescription& service) {
    if (m_machine.file_exists(definition_path(m_setting.form, service.label)))
        m_commands.attempt(disable_lines(m_setting.form, service));
}

Result<> ChronyJobs::place_wake_tool() {
    if (m_setting.install_wake) {
        m_commands.install_program(bundle_program("chronywake"), m_setting.chronywake);
        return m_commands.install_service(wake(), false);
    }
    disable_service(wake());
    m_commands.remove_service(wake());
    (void)m_commands.run(m_commands.tool().remove_item(m_setting.chronywake));
    m_commands.run(reload_lines(m_setting.form));
    return {};
}

Result<> ChronyJobs::wake_tool() {
    (void)m_commands.run(m_commands.tool().verb("stopwake"));
    if (auto placed = place_wake_tool(); !placed)
        return placed;
    if (m_setting.install_wake)
        (void)m_commands.run(m_commands.tool().verb("startwake"));
    return m_commands.outcome(m_setting.install_wake ? FailureCode::chronywake_not_installed
                                                     : FailureCode::chronywake_not_removed);
}

Result<> ChronyJobs::uninstall() {
    if (!m_unit.empty())
        return failed(FailureCode::distribution_removes);
    const auto rotation = rotation_service(script(), m_setting.chronyc, "");
    stop_daemon();
    for (const auto& service : {daemon(), rotation, wake()})
        disable_service(service);
    for (const auto& service : {daemon(), rotation, wake()})
        m_commands.remove_service(service);
    for (const auto& path : {m_setting.chronyd, m_setting.chronyc, m_setting.chronywake, script()})
        (void)m_commands.run(m_commands.tool().remove_item(path));
    m_commands.run(reload_lines(m_setting.form));
    if (m_setting.form == ServiceForm::systemd)
        (void)m_commands.run(m_commands.tool().verb("restoreservices"));
    return m_commands.outcome(FailureCode::chrony_not_removed);
}

} // namespace tickervantage
