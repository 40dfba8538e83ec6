// A job's steps carried out: through the helper, by waiting, and on the disk.
#pragma once

#include "roothelper/jobs/job_steps.h"

#include <functional>
#include <string>

namespace tickervantage {

class PrivilegedActions;

struct SentStepsParts {
    std::function<void(int seconds)> pause;
    // Puts a file in place of another one as a whole. 0, or -1 and one sentence.
    std::function<int(const std::string& path, const std::string& bytes, std::string& sentence)> replace_file;
    // Told of every command and what it answered; may be missing.
    std::function<void(const std::string& command, const std::string& reply)> heard;
};

class SentSteps : public JobSteps {
public:
    // All of it outlives the steps.
    SentSteps(PrivilegedActions& actions, const SentStepsParts& parts) : m_actions(actions), m_parts(parts) {}

    StepReply execute(const std::string& command) override;
    void sleep(int seconds) override;
    [[nodiscard]] int write(const std::string& path, const std::string& text) override;

private:
    PrivilegedActions& m_actions;
    const SentStepsParts& m_parts;
};

} // namespace tickervantage
