#include "roothelper/support/unit_status.h"

#include "base/text_lines.h"
#include "roothelper/support/one_line.h"

#include <fmt/format.h>

#include <chrono>

namespace tickervantage {
namespace {

constexpr std::chrono::seconds job_limit{60};
constexpr const char* properties =
    "--property=Id,LoadState,ActiveState,SubState,Result,InvocationID,MainPID,ExecMainPID,"
    "NeedDaemonReload,UnitFileState";

} // namespace

std::string UnitStatus::operator[](std::string_view key) const {
    const auto found = values.find(key);
    return found == values.end() ? std::string() : found->second;
}

bool UnitStatus::is_down() const {
    const auto state = (*this)["ActiveState"];
    return state == "inactive" || state == "failed" || state.empty();
}

bool succeeded(const ExecuteResult& result) {
    return result.outcome == ExecuteOutcome::exited && result.exit_status == 0;
}

ExecuteResult systemctl(Execute& execute, std::vector<std::string> arguments) {
    return execute.run({.program = "/bin/systemctl", .arguments = std::move(arguments), .time_limit = job_limit});
}

int look_at_unit(Execute& execute, const std::string& unit, UnitStatus& status, std::string& sentence) {
    const auto result = systemctl(execute, {"show", properties, unit});
    if (!succeeded(result)) {
        sentence = fmt::format("Cannot ask for {}: {}", unit, last_words(result));
        return -1;
    }
    status.values.clear();
    for (const auto line : non_empty_lines(result.output))
        if (const auto equals = line.find('='); equals != std::string_view::npos)
            status.values.insert_or_assign(std::string(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    return 0;
}

} // namespace tickervantage
