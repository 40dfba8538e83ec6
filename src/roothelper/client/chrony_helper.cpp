#include "roothelper/client/chrony_helper.h"

namespace tickervantage {

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
        answer.failure = said_by_others(*answer.reply); // of a helper that does not tell failures by name
    return answer;
}

void ChronyHelper::quit() {
    (void)m_xpc.send("QUIT", authorisation()); // a farewell needs no answer
    m_xpc.disconnect();
    const std::lock_guard lock(m_mutex);
    m_auth.reset();
}

} // namespace tickervantage
