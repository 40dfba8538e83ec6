// A job's steps carried out: through the helper, by waiting, and on the disk.
#pragma once

#include "roothelper/jobs/job_steps.h"

#include <string>

namespace tickervantage {

class JobMachine;
class PrivilegedActions;

class SentSteps : public JobSteps {
public:
    // Both outlive the steps.
    SentSteps(PrivilegedActions& actions, JobMachine& machine) : m_actions(actions), m_machine(machine) {}

    StepReply execute(const std::string& command) override;
    void sleep(int seconds) override;
    [[nodiscard]] Result<> write(const std::string& path, const std::string& text) override;
    [[nodiscard]] bool carries_out() const override { return true; }

private:
    PrivilegedActions& m_actions;
    JobMachine& m_machine;
};

} // namespace tickervantage
