#include "roothelper/jobs/job_commands.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <fmt/format.h>

namespace tickervantage {
namespace {

std::string_view words_before_cause(FailureCode code) {
    const std::string_view words = words_of(code);
    return words.substr(0, words.find(": %c"));
}

} // namespace

tl::unexpected<Failure> because(FailureCode code, const Failure& answer) {
    if (answer.code == code)
        return tl::unexpected(answer);
    if (answer.code != FailureCode::others_words || answer.arguments.empty())
        return failed(code, {}, answer);
    const auto lines = non_empty_lines(answer.arguments.front());
    if (lines.empty())
        return failed(code);
    Failure said = said_by_others(std::string(trimmed(lines.front())));
    if (said.arguments.front().starts_with(words_before_cause(code)))
        return tl::unexpected(std::move(said));
    return failed(code, {}, std::move(said));
}

std::string folder_of(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

StepReply JobCommands::run(const std::string& command) {
    auto reply = m_steps.execute(command);
    if (!reply.outcome && !m_failure)
        m_failure = reply.outcome.error();
    return reply;
}

void JobCommands::run(const std::vector<ServiceLine>& lines) {
    for (const auto& line : lines) {
        (void)run(line.command);
        if (line.pause_seconds > 0)
            m_steps.sleep(line.pause_seconds);
    }
}

void JobCommands::attempt(const std::vector<ServiceLine>& lines) {
    const auto failure = m_failure;
    run(lines);
    m_failure = failure;
}

Result<> JobCommands::outcome(FailureCode code) const {
    if (m_failure)
        return because(code, *m_failure);
    return {};
}

StepReply JobCommands::install_item(const std::string& source, const std::string& destination, const char* mode,
                                    bool with_parent) {
    const std::string folder = with_parent ? folder_of(destination) : std::string();
    if (!folder.empty())
        (void)run(m_tool.create_parent(folder));
    return run(m_tool.install_item(source, destination, mode));
}

Result<std::string> JobCommands::prepare_file(const std::string& name, const std::string& text) {
    const std::string path = m_temporary + name;
    if (auto written = m_steps.write(path, text); !written)
        return failed(FailureCode::cannot_prepare_files, {m_temporary}, std::move(written).error());
    return path;
}

Result<> JobCommands::place_service(const ServiceDescription& service, bool with_parent) {
    for (const auto& file : definition_files(m_form, service)) {
        const auto temporary = prepare_file(file.temporary, file.text);
        if (!temporary)
            return tl::unexpected(temporary.error());
        (void)install_item(*temporary, file.path, SupportTool::file_mode, with_parent);
    }
    return {};
}

Result<> JobCommands::install_service(const ServiceDescription& service, bool with_parent) {
    if (auto placed = place_service(service, with_parent); !placed)
        return placed;
    run(enable_lines(m_form, service));
    return {};
}

void JobCommands::remove_service(const ServiceDescription& service) {
    for (const auto& file : definition_files(m_form, service))
        (void)run(m_tool.remove_item(file.path));
}

std::string SupportTool::verb(const std::string& name) const {
    return m_tool + ' ' + name;
}

std::string SupportTool::install_item(const std::string& source, const std::string& destination,
                                      const std::string& mode) const {
    return fmt::format(R"({} installitem "{}" "{}" "{}" "{}")", m_tool, source, destination, owner, mode);
}

std::string SupportTool::check_item(const std::string& source, const std::string& destination,
                                    const std::string& mode) const {
    return fmt::format(R"({} checkitem "{}" "{}" "{}" "{}")", m_tool, source, destination, owner, mode);
}

std::string SupportTool::remove_item(const std::string& path) const {
    return fmt::format(R"({} removeitem "{}")", m_tool, path);
}

std::string SupportTool::restore_former(const std::string& destination) const {
    return fmt::format(R"({} restoreformer "{}")", m_tool, destination);
}

std::string SupportTool::create_parent(const std::string& folder) const {
    return fmt::format(R"({} createdirectory "" "{}")", m_tool, folder);
}

std::string SupportTool::create_directory(const std::string& folder) const {
    return verb("createdirectory " + folder);
}

std::string SupportTool::add_user(const std::string& name) const {
    return verb("adduser " + name);
}

std::string SupportTool::step_time(double seconds) const {
    return verb(fmt::format("steptime {:g}", seconds));
}

std::string SupportTool::adjust_clock(bool on) const {
    return verb(on ? "adjustclock on" : "adjustclock off");
}

std::string SupportTool::use_sensor(const SensorPlace& sensor) const {
    return fmt::format(R"({} usesensor "{}" "{}" "{}")", m_tool, sensor.device, sensor.chip, sensor.input);
}

std::string SupportTool::rotate_logs(const std::string& script, const std::string& log_folder) const {
    return fmt::format(R"({} rotatelogs "{}" "{}")", m_tool, script, log_folder);
}

} // namespace tickervantage
