// What an administrative job is made of: requests to the root helper, pauses, and files written to be installed.
//
// A job plays its steps through this interface, so that the same series can be carried out, printed, or listened to by
// a test. One job at a time; off the main thread where the steps are carried out.
#pragma once

#include "base/failure.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tickervantage {

class JobMachine;
class PrivilegedActions;

struct StepReply {
    std::string text = {}; // what the command printed
    Result<> outcome = {}; // whether it did its work
};

class JobSteps {
public:
    virtual ~JobSteps() = default;

    // Has the helper run a command line as root.
    virtual StepReply execute(const std::string& command) = 0;
    virtual void sleep(int seconds) = 0;
    // Writes a file as the user, in place of any older one.
    [[nodiscard]] virtual Result<> write(const std::string& path, const std::string& text) = 0;
    // False: the steps are only written down, and what they would change is not looked for.
    [[nodiscard]] virtual bool carries_out() const = 0;
};

// Keeps the series and carries out nothing. Every command does its work without a word.
class RecordedSteps : public JobSteps {
public:
    struct Execute {
        std::string command;
        friend bool operator==(const Execute&, const Execute&) = default;
    };
    struct Sleep {
        int seconds = 0;
        friend bool operator==(const Sleep&, const Sleep&) = default;
    };
    struct Write {
        std::string path;
        std::string text;
        friend bool operator==(const Write&, const Write&) = default;
    };
    using Step = std::variant<Execute, Sleep, Write>;

    StepReply execute(const std::string& command) override {
        m_steps.emplace_back(Execute{command});
        return {};
    }
    void sleep(int seconds) override { m_steps.emplace_back(Sleep{seconds}); }
    [[nodiscard]] Result<> write(const std::string& path, const std::string& text) override {
        m_steps.emplace_back(Write{path, text});
        return {};
    }
    [[nodiscard]] bool carries_out() const override { return false; }

    [[nodiscard]] const std::vector<Step>& steps() const { return m_steps; }

private:
    std::vector<Step> m_steps;
};

// A job's steps carried out: through the helper, by waiting, and on the disk.
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
