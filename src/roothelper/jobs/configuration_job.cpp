#include "roothelper/jobs/chrony_jobs.h"

#include "base/text_lines.h"

#include <fmt/format.h>

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

constexpr const char* not_installed = "The configuration was not installed";

// Also where a link leads to the other, or neither is there yet.
bool is_same_file(const std::string& one, const std::string& other) {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto first = fs::weakly_canonical(one, error);
    const auto second = fs::weakly_canonical(other, error);
    return error ? one == other : first == second;
}

} // namespace

std::string job_sentence(std::string_view words, std::string_view detail) {
    const auto lines = non_empty_lines(detail);
    const std::string_view said = lines.empty() ? std::string_view() : trimmed(lines.front());
    if (said.starts_with(words))
        return std::string(said);
    const std::string_view end = said.ends_with('.') ? "" : ".";
    return said.empty() ? fmt::format("{}.", words) : fmt::format("{}: {}{}", words, said, end);
}

std::string not_accepted(const ConfigError& error) {
    return error.m_isok ? job_sentence("This configuration could not be checked and is not installed", error.m_doubt)
                        : job_sentence("chronyd refuses this configuration", error.m_msg);
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
    const auto label = m_unit.empty() ? std::string(daemon_label) : m_unit.substr(0, m_unit.rfind('.'));
    return complaint_in(m_steps.execute(status_line(m_setting.form, label)).text);
}

StepReply ChronyJobs::place_configuration(const std::string& temporary, const std::string& text) {
    guard();
    stop_daemon();
    auto placed = install_item(temporary, m_setting.config, SupportTool::file_mode, false);
    if (placed.is_done) // what was refused must not leave a user or a folder behind
        prepare_configuration(text);
    start_daemon();
    return placed;
}

std::string ChronyJobs::read_by_nobody() const {
    if (!m_probes.carried_out || !m_probes.started_daemon)
        return {};
    const auto daemon = m_probes.started_daemon(m_unit);
    if (!daemon || is_same_file(daemon->config, m_setting.config))
        return {};
    return fmt::format("Nothing was changed: {} reads {}, while the preferences name {} as the configuration.",
                       daemon->unit, daemon->config, m_setting.config);
}

bool ChronyJobs::holds(const std::string& text) const {
    return !m_probes.carried_out || m_probes.read_file(m_setting.config) == text;
}

bool ChronyJobs::has_service() const {
    return !m_unit.empty() || m_probes.file_exists(definition_path(m_setting.form, daemon_label));
}

// A service that is not there cannot come up, and no configuration is to blame for that.
bool ChronyJobs::comes_up() {
    return !m_probes.carried_out || !has_service() || (m_start_reply.is_done && m_probes.daemon_survives(m_unit));
}

JobResult ChronyJobs::install_configuration(const std::string& text) {
    if (const ConfigError error = m_probes.check_syntax(text); !error.passed())
        return {.done = false, .sentence = not_accepted(error)};
    if (auto sentence = read_by_nobody(); !sentence.empty())
        return {.done = false, .sentence = std::move(sentence)};
    const bool had_former = m_probes.file_exists(m_setting.config);
    const std::string temporary = m_setting.temporary + "to_be_installed_chrony.conf";
    if (m_steps.write(temporary, text) != 0)
        return cannot_write();
    (void)run(m_tool.check_item(temporary, m_setting.config, SupportTool::file_mode));
    if (auto judged = outcome(not_installed); !judged.done)
        return judged;
    const StepReply placed = place_configuration(temporary, text);
    if (!placed.is_done || !holds(text))
        return {.done = false, .sentence = job_sentence(not_installed, placed.text)};
    if (!comes_up())
        return recover(had_former);
    if (!m_start_reply.is_done)
        return {.done = false,
                .sentence =
                    job_sentence("The configuration is installed, but chronyd was not started", m_start_reply.text)};
    return restart_gpsd_if_there();
}

JobResult ChronyJobs::recover(bool had_former) {
    const std::string ended =
        job_sentence("chronyd ended soon after it was started with this configuration", daemon_complaint());
    if (!had_former)
        return {.done = false,
                .sentence =
                    ended + " There was no configuration before it that could be put back: chronyd does not run."};
    guard();
    stop_daemon();
    const StepReply restored = m_steps.execute(m_tool.restore_former(m_setting.config));
    start_daemon();
    (void)restart_gpsd_if_there(); // the sentence tells of chronyd
    if (!restored.is_done)
        return {.done = false,
                .sentence = ended + ' ' + job_sentence("The former configuration did not come back", restored.text)};
    if (!comes_up())
        return {.done = false,
                .sentence = ended + ' ' +
                            job_sentence("The former configuration is back, but chronyd does not run with it either",
                                         daemon_complaint())};
    return {.done = false, .sentence = ended + " The former configuration is back, and chronyd runs with it again."};
}

} // namespace tickervantage
