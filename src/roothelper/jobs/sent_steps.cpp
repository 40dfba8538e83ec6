#include "roothelper/jobs/sent_steps.h"

#include "roothelper/client/privileged_actions.h"

namespace tickervantage {

StepReply SentSteps::execute(const std::string& command) {
    const HelperAnswer answer = m_actions.execute_in_job(command);
    StepReply reply{answer.reply.value_or(""), answer.is_done};
    if (m_parts.heard)
        m_parts.heard(command, reply.text);
    return reply;
}

void SentSteps::sleep(int seconds) {
    m_parts.pause(seconds);
}

int SentSteps::write(const std::string& path, const std::string& text) {
    std::string sentence;
    const int result = m_parts.replace_file(path, text, sentence);
    if (result != 0 && m_parts.heard)
        m_parts.heard("write " + path, sentence);
    return result;
}

} // namespace tickervantage
