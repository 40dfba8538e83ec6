#include "roothelper/client/privileged_actions.h"

#include "roothelper/grammar/helper_names.h"

#include <utility>

namespace tickervantage {

PrivilegedActions::PrivilegedActions(PrivilegedChannel& channel, PrivilegedReports reports)
    : m_reports(std::move(reports)), m_helper(channel, m_reports.logger) {}

bool PrivilegedActions::report(PrivilegedProblem problem, const std::string& detail) const {
    if (m_reports.logger != nullptr)
        m_reports.logger->log(LogLevel::warning, detail);
    if (m_reports.problem)
        m_reports.problem(problem, detail);
    return false;
}

bool PrivilegedActions::authorise() {
    const std::lock_guard lock(m_asking);
    return ask();
}

bool PrivilegedActions::ask() {
    std::string sentence;
    if (m_helper.install(sentence) != 0)
        return report(PrivilegedProblem::not_installed, sentence);
    m_auth = m_helper.authorise(sentence);
    return m_auth.has_value() || report(PrivilegedProblem::refused, sentence);
}

bool PrivilegedActions::blessHelper() {
    const std::lock_guard lock(m_asking);
    if (m_blessed)
        return true;
    if (!ask())
        return false;
    m_helper.set_authorisation(m_auth);
    m_blessed = true;
    return true;
}

HelperAnswer PrivilegedActions::ask_helper(const std::string& command) {
    HelperAnswer answer = m_helper.send("EXECUTE " + command);
    if (answer.reply == helper::lapsed_reply)
        m_blessed = false;
    return answer;
}

std::string PrivilegedActions::execute(const std::string& command) {
    return ask_helper(command).reply.value_or("");
}

HelperAnswer PrivilegedActions::execute_in_job(const std::string& command) {
    HelperAnswer answer = ask_helper(command);
    return !m_blessed && blessHelper() ? ask_helper(command) : answer;
}

void PrivilegedActions::quit() {
    if (action_in_progress())
        return;
    m_helper.quit();
    const std::lock_guard lock(m_asking);
    m_auth.reset();
    m_blessed = false;
}

bool PrivilegedActions::action_in_progress() const {
    const std::lock_guard lock(m_mutex);
    return m_installer_busy;
}

void PrivilegedActions::set_action_in_progress(bool in_progress) {
    const std::lock_guard lock(m_mutex);
    m_installer_busy = in_progress;
}

} // namespace tickervantage
