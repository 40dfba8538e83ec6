#include "roothelper/client/chrony_helper.h"

#include "base/text_lines.h"

namespace tickervantage {
namespace {

// The first line says most: programs put their hints behind it.
Failure words_of_others(const std::string& reply) {
    const auto lines = non_empty_lines(reply);
    return said_by_others(lines.empty() ? std::string() : std::string(trimmed(lines.front())));
}

} // namespace

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
