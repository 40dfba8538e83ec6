#include "roothelper/jobs/job_steps.h"

#include "roothelper/client/privileged_actions.h"
#include "roothelper/jobs/job_machine.h"

namespace tickervantage {

StepReply SentSteps::execute(const std::string& command) {
    const HelperAnswer answer = m_actions.execute_in_job(command);
    StepReply reply{.text = answer.reply.value_or("")};
    if (!answer.is_done)
        reply.outcome = tl::unexpected(answer.failure.value_or(said_by_others(reply.text)));
    return reply;
}

void SentSteps::sleep(int seconds) {
    m_machine.pause(seconds);
}

Result<> SentSteps::write(const std::string& path, const std::string& text) {
    return m_machine.replace_file(path, text);
}

} // namespace tickervantage
