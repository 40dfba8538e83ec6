#include "privileged/sent_steps.h"

#include "privileged/privileged_actions.h"

namespace tickervantage {

std::string SentSteps::execute(const std::string& command) {
    std::string reply = m_actions.execute_in_job(command);
    if (m_parts.heard)
        m_parts.heard(command, reply);
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
