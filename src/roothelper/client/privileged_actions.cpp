#include "roothelper/client/privileged_actions.h"

#include "base/failure_codes.h"
#include "roothelper/grammar/helper_names.h"

#include <utility>

namespace tickervantage {

PrivilegedActions::PrivilegedActions(PrivilegedChannel& channel, PrivilegedReports reports)
    : m_reports(std::move(reports)), m_helper(channel, m_reports.logger) {}

bool PrivilegedActions::report(PrivilegedProblem problem, const Failure& why) const {
    if (m_reports.logger != nullptr)
        m_reports.logger->log(LogLevel::warning, english(why));
    if (m_reports.problem)
        m_reports.problem(problem, why);
    return false;
}

bool PrivilegedActions::authorise() {
    const std::lock_guard lock(m_asking);
    return ask();
}

bool PrivilegedActions::ask() {
    if (const auto there = m_helper.m_xpc.install(); !there)
        return report(PrivilegedProblem::not_installed, there.error());
    const auto granted = m_helper.authorise();
    return granted || report(PrivilegedProblem::refused, granted.error());
}

bool PrivilegedActions::blessHelper() {
    const std::lock_guard lock(m_asking);
    m_blessed = m_blessed || ask();
    return m_blessed;
}

HelperAnswer PrivilegedActions::ask_helper(const std::string& command) {
    HelperAnswer answer = m_helper.send("EXECUTE " + command);
    if (answer.reply == words_of(FailureCode::authorisation_lapsed)) // also of a helper that only speaks
        m_blessed = false;
    return answer;
}

std::string PrivilegedActions::execute(const std::string& command) {
    return ask_helper(command).reply.value_or("");
}

HelperAnswer PrivilegedActions::data_reports(const std::string& chronyc) {
    return ask_helper("/bin/sh -c '" + chronyc + std::string(helper::data_reports) + "' 2>&1");
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
