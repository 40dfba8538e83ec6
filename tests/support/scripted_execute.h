// Programs that answer as the test scripted them, and remember how they were called.
#pragma once

#include "base/execute.h"
#include "base/failure_codes.h"
#include "support/test.h"

namespace tickervantage::testing {

class ScriptedExecute : public Execute {
public:
    // Answers by the program's path, by its name and last argument ("chronyc tracking"), or by the name alone; of
    // several commands in one run, by "chronyc -m"; of another machine, by "chronyc -h HOST", whatever the command.
    std::map<std::string, ExecuteResult> answers;
    std::vector<std::string> calls; // program name and all arguments, joined by "|"

    void answer(const std::string& call, const std::string& output, int exit_status = 0) {
        answers[call] = {
            .outcome = ExecuteOutcome::exited, .exit_status = exit_status, .output = output, .failure = {}};
    }

    [[nodiscard]] ExecuteResult run(const ExecuteRequest& request) override {
        const std::string name = request.program.substr(request.program.rfind('/') + 1);
        std::string call = name;
        for (const auto& argument : request.arguments)
            call += "|" + argument;
        calls.push_back(call);
        const bool several = std::ranges::find(request.arguments, "-m") != request.arguments.end();
        const std::string last = request.arguments.empty() ? "" : request.arguments.back();
        const std::string host =
            request.arguments.size() > 1 && request.arguments[0] == "-h" ? name + " -h " + request.arguments[1] : "";
        for (const auto& key : {host, request.program, name + (several ? " -m" : " " + last), name + " " + last, name})
            if (const auto found = answers.find(key); found != answers.end())
                return found->second;
        ExecuteResult missing;
        missing.failure = failed(FailureCode::cannot_be_started, {request.program}, ENOENT).value();
        return missing;
    }
};

} // namespace tickervantage::testing
