#include "roothelper/client/privileged_actions.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "roothelper/grammar/helper_names.h"

#include <utility>

namespace tickervantage {
namespace {

// The first line says most: programs put their hints behind it.
Failure words_of_others(const std::string& reply) {
    const auto lines = non_empty_lines(reply);
    return said_by_others(lines.empty() ? std::string() : std::string(trimmed(lines.front())));
}

} // namespace

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

Result<> ChronyHelper::authorise() {
    auto granted = m_xpc.authorise();
    if (!granted)
        return tl::unexpected(granted.error());
    const std::lock_guard lock(m_mutex);
    m_auth = *granted;
    return {};
}

std::optional<HelperToken> ChronyHelper::authorisation() const {
    const std::lock_guard lock(m_mutex);
    return m_auth;
}

HelperAnswer ChronyHelper::send(const std::string& request) {
    auto answer = m_xpc.ask(request, authorisation());
    if (!answer.reply && m_logger != nullptr)
        m_logger->log(LogLevel::warning, "Received empty reply");
    if (!answer.reply)
        answer.reply = "";
    if (!answer.is_done && !answer.failure)
        answer.failure = words_of_others(*answer.reply); // or of a helper that does not name its failures
    return answer;
}

void ChronyHelper::quit() {
    (void)m_xpc.send("QUIT", authorisation()); // a farewell needs no answer
    m_xpc.disconnect();
    const std::lock_guard lock(m_mutex);
    m_auth.reset();
}

} // namespace tickervantage
