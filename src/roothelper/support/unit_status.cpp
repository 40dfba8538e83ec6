#include "roothelper/support/unit_status.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "roothelper/support/one_line.h"

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

ExecuteResult systemctl(Execute& execute, std::vector<std::string> arguments) {
    return execute.run({.program = "/bin/systemctl", .arguments = std::move(arguments), .time_limit = job_limit});
}

Result<> manage_unit(Execute& execute, std::vector<std::string> arguments, FailureCode otherwise) {
    const std::string unit = arguments.back();
    const auto result = systemctl(execute, std::move(arguments));
    return succeeded(result) ? Result<>() : failed(otherwise, {unit}, last_words(result));
}

Result<UnitStatus> look_at_unit(Execute& execute, const std::string& unit) {
    const auto result = systemctl(execute, {"show", properties, unit});
    if (!succeeded(result))
        return failed(FailureCode::cannot_ask_for_unit, {unit}, last_words(result));
    UnitStatus status;
    for (const auto line : non_empty_lines(result.output))
        if (const auto equals = line.find('='); equals != std::string_view::npos)
            status.values.insert_or_assign(std::string(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
    return status;
}

} // namespace tickervantage
