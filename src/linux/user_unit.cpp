#include "linux/user_unit.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"

#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr const char* program = "/usr/bin/systemctl";

// What systemctl said, in one line.
Failure said(const ExecuteResult& run) {
    if (run.failure)
        return *run.failure;
    const auto lines = non_empty_lines(run.output);
    return said_by_others(lines.empty() ? "systemctl: " + std::to_string(run.exit_status) : std::string(lines.front()));
}

} // namespace

ExecuteResult UserUnit::systemctl(std::vector<std::string> words) const {
    words.insert(words.begin(), "--user");
    words.push_back(m_unit);
    return m_execute.run({.program = program, .arguments = std::move(words)});
}

Result<bool> UserUnit::is_on() const {
    const ExecuteResult run = systemctl({"is-enabled"});
    const std::string_view word = trimmed(run.output);
    if (word == "enabled" || word == "enabled-runtime" || word == "linked")
        return true;
    if (word == "disabled")
        return false;
    const bool is_missing = word == "not-found" || word.find("No such file") != std::string_view::npos;
    if (run.outcome == ExecuteOutcome::exited && is_missing)
        return failed(FailureCode::no_history_unit);
    return failed(FailureCode::no_user_services, {}, said(run));
}

Result<> UserUnit::turn(bool on) const {
    const ExecuteResult run = systemctl({on ? "enable" : "disable", "--now"});
    if (run.outcome == ExecuteOutcome::exited && run.exit_status == 0)
        return {};
    return failed(FailureCode::unit_not_turned, {}, said(run));
}

} // namespace tickervantage
