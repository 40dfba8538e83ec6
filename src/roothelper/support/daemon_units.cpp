#include "roothelper/support/daemon_units.h"

#include "base/failure_codes.h"
#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/support/one_line.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::chrono::milliseconds between_looks{250};
constexpr int looks = 20; // five seconds

const std::string daemon_unit = std::string(daemon_label) + ".service";
const std::string wake_unit = std::string(wake_label) + ".service";
const std::vector<std::string> daemon_units{daemon_unit, "chrony.service", "chronyd.service"};

ExecuteResult systemctl(const DaemonUnits& units, std::vector<std::string> arguments) {
    return systemctl(units.execute, std::move(arguments));
}

// What a daemon, or the service manager about it, said last; a complaint rather than a farewell.
Failure last_journal_words(const DaemonUnits& units, const UnitStatus& status) {
    const auto journal = [&](std::vector<std::string> arguments) {
        return units.execute.run({.program = "/bin/journalctl", .arguments = std::move(arguments)});
    };
    (void)journal({"--sync"}); // the last words may still be on their way; without this they are only likelier missed
    const auto invocation = status["InvocationID"];
    using Matches = std::vector<std::string>;
    Matches own{"_SYSTEMD_INVOCATION_ID=" + invocation};
    // The journal cannot tell any more whose run it was when it comes to the words of a process that has ended.
    if (const auto process = status["ExecMainPID"]; !process.empty() && process != "0")
        own.insert(own.end(), {"+", "_PID=" + process});
    // The manager's complaint often comes after the daemon's, and says less.
    Matches everybody = own;
    everybody.insert(everybody.end(), {"+", "INVOCATION_ID=" + invocation});
    for (const auto& [priority, matches] :
         {std::pair<const char*, Matches>{"err", own}, {"err", everybody}, {"debug", everybody}}) {
        std::vector<std::string> arguments{"--quiet",   "--no-pager", "--output=cat",
                                           "--lines=1", "--priority", priority};
        arguments.insert(arguments.end(), matches.begin(), matches.end());
        const auto result = journal(std::move(arguments));
        if (succeeded(result) && !trimmed(result.output).empty())
            return last_words(result);
    }
    return {.code = FailureCode::said_nothing};
}

tl::unexpected<Failure> died(const DaemonUnits& units, const UnitStatus& status) {
    return failed(FailureCode::unit_dies, {status["Id"]}, last_journal_words(units, status));
}

Result<> start_unit(const DaemonUnits& units, const UnitStatus& status) {
    const auto unit = status["Id"];
    if (status["NeedDaemonReload"] == "yes")
        (void)systemctl(units, {"daemon-reload"});  // what it does not know of yet, the start complains about
    (void)systemctl(units, {"reset-failed", unit}); // only lifts a limit of earlier failures, where there is one
    return manage_unit(units.execute, {"start", unit}, FailureCode::cannot_start_unit);
}

Result<std::string> watch(const DaemonUnits& units, const std::string& unit) {
    const auto first = look_at_unit(units.execute, unit);
    auto now = first;
    for (int look = 0; now && now->is_up() && now->run() == first->run(); ++look) {
        if (look == looks)
            return fmt::format("{} is {} ({}).", unit, (*now)["ActiveState"], (*now)["SubState"]);
        units.pause.pause(between_looks);
        now = look_at_unit(units.execute, unit);
    }
    if (!now)
        return tl::unexpected(now.error());
    return died(units, *first);
}

Result<std::string> start_and_watch(const DaemonUnits& units, const UnitStatus& status) {
    const auto started = start_unit(units, status);
    if (started)
        return watch(units, status["Id"]);
    // A unit that says when it is ready fails to start where others die later: the daemon's own words tell more.
    const auto now = look_at_unit(units.execute, status["Id"]);
    if (now && (*now)["Result"] == "exit-code")
        return died(units, *now);
    return tl::unexpected(started.error());
}

Result<std::string> stop_units(const DaemonUnits& units, const std::vector<std::string>& candidates) {
    std::vector<std::string> running;
    for (const auto& unit : candidates) {
        const auto status = look_at_unit(units.execute, unit);
        if (!status)
            return tl::unexpected(status.error());
        const auto name = (*status)["Id"];
        if (status->is_there() && !status->is_down() && std::ranges::find(running, name) == running.end())
            running.push_back(name); // one unit may have two names
    }
    if (running.empty())
        return fmt::format("{} was not running.", candidates.front());
    std::vector<std::string> arguments{"stop"};
    arguments.insert(arguments.end(), running.begin(), running.end());
    const auto result = systemctl(units, std::move(arguments));
    const auto names = fmt::format("{}", fmt::join(running, " and "));
    if (!succeeded(result))
        return failed(FailureCode::cannot_stop_unit, {names}, last_words(result));
    return fmt::format("Stopped {}.", names);
}

constexpr std::chrono::seconds job_limit{60};
constexpr const char* properties =
    "--property=Id,LoadState,ActiveState,SubState,Result,InvocationID,MainPID,ExecMainPID,"
    "NeedDaemonReload,UnitFileState";

} // namespace

Result<std::string> start_chrony(const DaemonUnits& units) {
    for (const auto& unit : daemon_units) {
        const auto status = look_at_unit(units.execute, unit);
        if (!status)
            return tl::unexpected(status.error());
        if (status->is_there())
            return start_and_watch(units, *status);
    }
    return failed(FailureCode::no_chronyd_service);
}

Result<std::string> stop_chrony(const DaemonUnits& units) {
    return stop_units(units, daemon_units);
}

Result<std::string> start_wake(const DaemonUnits& units) {
    const auto status = look_at_unit(units.execute, wake_unit);
    if (!status)
        return tl::unexpected(status.error());
    if (!status->is_there())
        return failed(FailureCode::no_wake_service);
    return start_unit(units, *status).map([] { return fmt::format("Started {}.", wake_unit); });
}

Result<std::string> stop_wake(const DaemonUnits& units) {
    return stop_units(units, {wake_unit});
}

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
