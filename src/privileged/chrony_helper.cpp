#include "privileged/chrony_helper.h"

namespace tickervantage {

int ChronyHelper::install(std::string& sentence) {
    const std::lock_guard lock(m_mutex);
    return m_xpc.install(sentence);
}

std::optional<HelperToken> ChronyHelper::authorise(std::string& sentence) {
    const std::lock_guard lock(m_mutex);
    return m_xpc.authorise(sentence);
}

void ChronyHelper::set_authorisation(const std::optional<HelperToken>& auth) {
    const std::lock_guard lock(m_mutex);
    m_auth = auth;
}

std::string ChronyHelper::send(const std::string& request) {
    const std::lock_guard lock(m_mutex);
    const auto reply = m_xpc.send(request, m_auth);
    if (!reply && m_logger != nullptr)
        m_logger->log(LogLevel::warning, "Received empty reply");
    return reply.value_or("");
}

void ChronyHelper::quit() {
    const std::lock_guard lock(m_mutex);
    (void)m_xpc.send("QUIT", m_auth); // a farewell needs no answer
    m_auth.reset();
    m_xpc.disconnect();
}

} // namespace tickervantage
