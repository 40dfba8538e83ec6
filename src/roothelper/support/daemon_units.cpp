#include "roothelper/support/daemon_units.h"

#include "base/text_lines.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/support/one_line.h"
#include "roothelper/support/unit_status.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
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

int fail(std::string& sentence, std::string text) {
    sentence = std::move(text);
    return -1;
}

int look_at(const DaemonUnits& units, const std::string& unit, UnitStatus& status, std::string& sentence) {
    return look_at_unit(units.execute, unit, status, sentence);
}

// What a daemon, or the service manager about it, said last; a complaint rather than a farewell.
std::string last_journal_words(const DaemonUnits& units, const UnitStatus& status) {
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
    return "it said nothing.";
}

int died(const DaemonUnits& units, const UnitStatus& status, std::string& sentence) {
    return fail(sentence, fmt::format("{} does not stay up: {}", status["Id"], last_journal_words(units, status)));
}

int start_unit(const DaemonUnits& units, const UnitStatus& status, std::string& sentence) {
    const auto unit = status["Id"];
    if (status["NeedDaemonReload"] == "yes")
        (void)systemctl(units, {"daemon-reload"});  // what it does not know of yet, the start complains about
    (void)systemctl(units, {"reset-failed", unit}); // only lifts a limit of earlier failures, where there is one
    const auto result = systemctl(units, {"start", unit});
    return succeeded(result) ? 0 : fail(sentence, fmt::format("Cannot start {}: {}", unit, last_words(result)));
}

int watch(const DaemonUnits& units, const std::string& unit, std::string& sentence) {
    UnitStatus first;
    if (look_at(units, unit, first, sentence) != 0)
        return -1;
    UnitStatus now = first;
    for (int look = 0; now.is_up() && now.run() == first.run(); ++look) {
        if (look == looks) {
            sentence = fmt::format("{} is {} ({}).", unit, now["ActiveState"], now["SubState"]);
            return 0;
        }
        units.pause(between_looks);
        if (look_at(units, unit, now, sentence) != 0)
            return -1;
    }
    return died(units, first, sentence);
}

int start_and_watch(const DaemonUnits& units, const UnitStatus& status, std::string& sentence) {
    if (start_unit(units, status, sentence) == 0)
        return watch(units, status["Id"], sentence);
    // A unit that says when it is ready fails to start where others die later: the daemon's own words tell more.
    UnitStatus now;
    std::string ignored;
    if (look_at(units, status["Id"], now, ignored) == 0 && now["Result"] == "exit-code")
        return died(units, now, sentence);
    return -1;
}

int stop_units(const DaemonUnits& units, const std::vector<std::string>& candidates, std::string& sentence) {
    std::vector<std::string> running;
    for (const auto& unit : candidates) {
        UnitStatus status;
        if (look_at(units, unit, status, sentence) != 0)
            return -1;
        if (status.is_there() && !status.is_down() && std::ranges::find(running, status["Id"]) == running.end())
            running.push_back(status["Id"]); // one unit may have two names
    }
    if (running.empty()) {
        sentence = fmt::format("{} was not running.", candidates.front());
        return 0;
    }
    std::vector<std::string> arguments{"stop"};
    arguments.insert(arguments.end(), running.begin(), running.end());
    const auto result = systemctl(units, std::move(arguments));
    const auto names = fmt::format("{}", fmt::join(running, " and "));
    if (!succeeded(result))
        return fail(sentence, fmt::format("Cannot stop {}: {}", names, last_words(result)));
    sentence = fmt::format("Stopped {}.", names);
    return 0;
}

} // namespace

int start_chrony(const DaemonUnits& units, std::string& sentence) {
    for (const auto& unit : daemon_units) {
        UnitStatus status;
        if (look_at(units, unit, status, sentence) != 0)
            return -1;
        if (status.is_there())
            return start_and_watch(units, status, sentence);
    }
    return fail(sentence, "No service for chronyd is installed.");
}

int stop_chrony(const DaemonUnits& units, std::string& sentence) {
    return stop_units(units, daemon_units, sentence);
}

int start_wake(const DaemonUnits& units, std::string& sentence) {
    UnitStatus status;
    if (look_at(units, wake_unit, status, sentence) != 0)
        return -1;
    if (!status.is_there())
        return fail(sentence, "The service of chronywake is not installed.");
    if (start_unit(units, status, sentence) != 0)
        return -1;
    sentence = fmt::format("Started {}.", wake_unit);
    return 0;
}

int stop_wake(const DaemonUnits& units, std::string& sentence) {
    return stop_units(units, {wake_unit}, sentence);
}

} // namespace tickervantage
