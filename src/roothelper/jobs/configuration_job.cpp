#include "roothelper/jobs/chrony_jobs.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/configuration/configuration.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tickervantage {
namespace {

// The words behind the last of these in a line; an empty text where there are none.
std::string behind(std::string_view line, std::string_view words) {
    const auto at = line.rfind(words);
    return at == std::string_view::npos ? std::string() : std::string(trimmed(line.substr(at + words.size())));
}

std::string without_full_stop(std::string sentence) {
    if (sentence.ends_with('.'))
        sentence.pop_back();
    return sentence;
}

// Also where a link leads to the other, or neither is there yet.
bool is_same_file(const std::string& one, const std::string& other) {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto first = fs::weakly_canonical(one, error);
    const auto second = fs::weakly_canonical(other, error);
    return error ? one == other : first == second;
}

} // namespace

Failure not_accepted(const ConfigError& error) {
    if (!error.m_isok)
        return error.m_doubt.value_or(because(FailureCode::configuration_refused, said_by_others(error.m_msg)).value());
    return failed(FailureCode::configuration_not_checked, {}, *error.m_doubt).value();
}

std::string complaint_in(const std::string& report) {
    auto newest_first = non_empty_lines(report);
    std::reverse(newest_first.begin(), newest_first.end());
    for (const std::string_view words : {"Fatal error : ", "does not stay up: ", "]: "})
        for (const auto line : newest_first)
            if (words != "]: " || line.find("chronyd[") != std::string_view::npos)
                if (auto found = behind(line, words); !found.empty())
                    return found;
    return {};
}

std::string ChronyJobs::daemon_complaint() {
    if (auto said = complaint_in(m_start_reply.text); !said.empty())
        return said;
    return complaint_in(m_commands.attempt(status_line(m_setting.form, daemon_name())).text);
}

std::string ChronyJobs::daemon_name() const {
    return m_unit.empty() ? std::string(daemon_label) : m_unit.substr(0, m_unit.rfind('.'));
}

// What fails here the daemon complains of when it is started.
void ChronyJobs::prepare_configuration(const std::string& text) {
    const SupportTool& tool = m_commands.tool();
    const std::string user = directive_in(text, "user");
    if (!user.empty() && user != "root")
        (void)m_commands.attempt(tool.add_user(user));
    for (const char* name : {"logdir", "dumpdir"})
        if (const std::string folder = directive_in(text, name); !folder.empty())
            (void)m_commands.attempt(tool.create_directory(folder));
    if (const std::string socket = directive_in(text, "bindcmdaddress"); !socket.empty())
        (void)m_commands.attempt(tool.remove_item(socket)); // a stale one
}

StepReply ChronyJobs::place_configuration(const std::string& temporary, const std::string& text) {
    guard();
    stop_daemon();
    StepReply placed{.outcome = place_compensation()};
    if (placed.outcome)
        placed = m_commands.install_item(temporary, m_setting.config, SupportTool::file_mode, false);
    if (placed.outcome) // what was refused must not leave a user or a folder behind
        prepare_configuration(text);
    else
        take_back_compensation();
    start_daemon();
    return placed;
}

// A file that nobody reads is not worth installing.
Result<> ChronyJobs::read_by_its_daemon() const {
    if (!m_commands.are_carried_out())
        return {};
    const auto daemon = m_machine.started_daemon(m_unit);
    if (!daemon || is_same_file(daemon->config, m_setting.config))
        return {};
    return failed(FailureCode::other_configuration_in_use, {daemon->unit, daemon->config, m_setting.config});
}

bool ChronyJobs::holds(const std::string& text) const {
    return !m_commands.are_carried_out() || m_machine.read_file(m_setting.config) == text;
}

bool ChronyJobs::has_service() const {
    return !m_unit.empty() || m_machine.file_exists(definition_path(m_setting.form, daemon_label));
}

// A service that is not there cannot come up, and no configuration is to blame for that.
bool ChronyJobs::comes_up() {
    return !m_commands.are_carried_out() || !has_service() ||
           (m_start_reply.outcome && m_machine.daemon_survives(m_unit) && has_temperature());
}

Result<> ChronyJobs::install_configuration(const std::string& text) {
    if (const ConfigError error = m_machine.check_syntax(text); !error.passed())
        return tl::unexpected(not_accepted(error));
    if (auto read = read_by_its_daemon(); !read)
        return read;
    const bool had_former = m_machine.file_exists(m_setting.config);
    const auto temporary = m_commands.prepare_file("to_be_installed_chrony.conf", text);
    if (!temporary)
        return tl::unexpected(temporary.error());
    (void)m_commands.run(m_commands.tool().check_item(*temporary, m_setting.config, SupportTool::file_mode));
    if (auto judged = m_commands.outcome(FailureCode::configuration_not_installed); !judged)
        return judged;
    const StepReply placed = place_configuration(*temporary, text);
    if (!placed.outcome)
        return because(FailureCode::configuration_not_installed, placed.outcome.error());
    if (!holds(text))
        return failed(FailureCode::configuration_not_installed);
    if (!comes_up())
        return tl::unexpected(recover(had_former));
    if (!m_start_reply.outcome)
        return because(FailureCode::configuration_without_daemon, m_start_reply.outcome.error());
    return restart_gpsd_if_there();
}

Failure ChronyJobs::recover(bool had_former) {
    const std::string complaint = m_lacks_temperature ? std::string() : daemon_complaint();
    const auto what =
        m_lacks_temperature ? FailureCode::compensation_without_temperature : FailureCode::chronyd_ended_soon;
    Failure end = had_former ? bring_back_former() : Failure{.code = FailureCode::no_former_configuration};
    if (complaint.empty())
        return failed(what, {}, std::move(end)).value();
    return failed(FailureCode::chronyd_ended_saying, {without_full_stop(complaint)}, std::move(end)).value();
}

Failure ChronyJobs::bring_back_former() {
    guard();
    stop_daemon();
    const StepReply restored = m_commands.attempt(m_commands.tool().restore_former(m_setting.config));
    take_back_compensation();
    start_daemon();
    (void)restart_gpsd_if_there(); // the words tell of chronyd
    if (!restored.outcome)
        return because(FailureCode::former_not_back, restored.outcome.error()).value();
    if (!comes_up())
        return because(FailureCode::former_does_not_run, said_by_others(daemon_complaint())).value();
    return {.code = FailureCode::former_is_back};
}

} // namespace tickervantage
