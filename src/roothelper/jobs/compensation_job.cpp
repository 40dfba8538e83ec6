// The jobs of the temperature compensation: a configuration with two files beside it, all of which come and go
// together.
#include "roothelper/jobs/chrony_jobs.h"

#include "base/failure_codes.h"
#include "chrony/configuration/compensation_text.h"
#include "chrony/configuration/included_files.h"
#include "chrony/services/points_table.h"

#include <utility>

namespace tickervantage {
namespace {

// The drop-in of whichever unit there is.
std::optional<SensorPlace> installed_sensor(const JobMachine& machine) {
    for (const std::string& path : sensor_drop_in_paths())
        if (const auto text = machine.read_file(path))
            if (auto sensor = sensor_in_drop_in(*text))
                return sensor;
    return std::nullopt;
}

// The last line that chronyd reads decides, which may be one of an included file.
Result<> none_elsewhere(const JobMachine& machine, const std::string& text) {
    for (const IncludedFile& file : included_files(text))
        if (has_any_compensation(machine.read_file(file.path).value_or("")))
            return failed(FailureCode::compensation_elsewhere, {file.path});
    return {};
}

} // namespace

Result<std::string> ChronyJobs::installed_text() const {
    if (m_setting.form != ServiceForm::systemd)
        return failed(FailureCode::compensation_needs_systemd);
    auto text = m_machine.read_file(m_setting.config);
    return text ? Result<std::string>(*std::move(text))
                : failed(FailureCode::no_configuration_to_install, {m_setting.config});
}

Result<> ChronyJobs::install_compensation(const CompensationOrder& order) {
    const auto text = installed_text();
    if (!text)
        return tl::unexpected(text.error());
    if (const auto points = read_points_for_kernel(order.points, order.name); !points)
        return tl::unexpected(points.error());
    if (auto none = none_elsewhere(m_machine, *text); !none)
        return none;
    const auto temporary = m_commands.prepare_file("to_be_installed.tempcomp", order.points);
    if (!temporary)
        return tl::unexpected(temporary.error());
    (void)m_commands.run(m_commands.tool().check_item(*temporary, compensation_points_path, SupportTool::file_mode));
    if (auto judged = m_commands.outcome(FailureCode::compensation_not_installed); !judged)
        return judged;
    m_compensation = CompensationChange{.points = order.points,
                                        .prepared = *temporary,
                                        .sensor = order.sensor,
                                        .former_points = m_machine.read_file(compensation_points_path),
                                        .former_sensor = installed_sensor(m_machine)};
    return install_configuration(with_compensation(*text));
}

Result<> ChronyJobs::remove_compensation() {
    const auto text = installed_text();
    if (!text)
        return tl::unexpected(text.error());
    if (!has_compensation(*text))
        return failed(FailureCode::compensation_not_ours);
    if (auto installed = install_configuration(without_compensation(*text)); !installed)
        return installed;
    (void)m_commands.run(m_commands.tool().remove_item(compensation_points_path));
    (void)m_commands.run(m_commands.tool().verb("dropsensor"));
    return m_commands.outcome(FailureCode::compensation_not_removed);
}

// What the configuration that comes next will name; nothing to do where it names nothing.
Result<> ChronyJobs::place_compensation() {
    if (!m_compensation)
        return {};
    const SupportTool& tool = m_commands.tool();
    const auto placed = m_commands.attempt(
        tool.install_item(m_compensation->prepared, compensation_points_path, SupportTool::file_mode));
    return placed.outcome ? m_commands.attempt(tool.use_sensor(m_compensation->sensor)).outcome : placed.outcome;
}

void ChronyJobs::take_back_compensation() {
    if (!m_compensation)
        return;
    const SupportTool& tool = m_commands.tool();
    if (!m_compensation->former_points)
        (void)m_commands.attempt(tool.remove_item(compensation_points_path));
    else if (*m_compensation->former_points != m_compensation->points) // else what came before them would come back
        (void)m_commands.attempt(tool.restore_former(compensation_points_path));
    (void)m_commands.attempt(m_compensation->former_sensor ? tool.use_sensor(*m_compensation->former_sensor)
                                                           : tool.verb("dropsensor"));
    m_compensation.reset();
}

// chronyd runs without a temperature, and only says so.
bool ChronyJobs::has_temperature() {
    m_lacks_temperature = false;
    if (!m_compensation)
        return true;
    const auto found = m_commands.attempt(m_commands.tool().verb("checksensor")).outcome;
    m_lacks_temperature = !found && found.error().code == FailureCode::compensation_without_temperature;
    return !m_lacks_temperature;
}

} // namespace tickervantage
