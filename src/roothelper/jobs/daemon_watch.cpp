#include "roothelper/jobs/daemon_watch.h"

#include "base/text_lines.h"
#include "chrony/reports/running_check.h"
#include "chrony/services/chrony_services.h"
#include "roothelper/jobs/job_machine.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tickervantage {
namespace {

// What stands behind these words, up to the end of the line or the next blank semicolon.
std::string behind(std::string_view text, std::string_view words) {
    const auto at = text.find(words);
    if (at == std::string_view::npos)
        return {};
    text.remove_prefix(at + words.size());
    text = text.substr(0, text.find('\n'));
    return std::string(trimmed(text.substr(0, text.find(" ; "))));
}

std::string without_quotes(std::string text) {
    std::erase_if(text, [](char one) { return one == '"' || one == '\''; });
    return text;
}

std::string config_in(const std::string& command_line) {
    std::string config;
    each_option(command_line, [&config](char option, std::string value) {
        if (option == 'f')
            config = std::move(value);
    });
    return config;
}

} // namespace

bool DaemonWatch::is_up(const std::string& unit) const {
    if (form == ServiceForm::launchd)
        return any_chronyd_runs(execute);
    const std::string name = unit.empty() ? std::string(daemon_label) + ".service" : unit;
    const auto answer = execute.run({.program = "/bin/systemctl", .arguments = {"is-active", "--quiet", name}});
    return answer.outcome == ExecuteOutcome::exited && answer.exit_status == 0;
}

bool DaemonWatch::daemon_survives(const std::string& unit) const {
    if (form == ServiceForm::systemd && unit.empty())
        return is_up(unit);
    for (int second = 0; second < watch_seconds; ++second) {
        machine.pause(1);
        if (!is_up(unit))
            return false;
    }
    return true;
}

std::string StartedDaemonLook::running_line(const std::string& pid) const {
    if (pid.empty() || pid == "0")
        return {};
    std::ifstream file(proc + "/" + pid + "/cmdline", std::ios::binary);
    std::string line{std::istreambuf_iterator<char>(file), {}};
    std::ranges::replace(line, '\0', ' ');
    return line;
}

std::string StartedDaemonLook::with_variables(const std::string& line, const std::string& environment_file) const {
    const std::string assignments = '\n' + machine.read_file(environment_file).value_or("");
    std::istringstream words(line);
    std::string result;
    for (std::string word; words >> word;) {
        if (word.starts_with('$')) {
            std::erase_if(word, [](char one) { return one == '$' || one == '{' || one == '}'; });
            word = without_quotes(behind(assignments, '\n' + word + '='));
        }
        result += word + ' ';
    }
    return result;
}

std::optional<StartedDaemon> StartedDaemonLook::look_at(const std::string& unit) const {
    const auto answer =
        execute.run({.program = "/bin/systemctl",
                     .arguments = {"show", "--property=LoadState,MainPID,ExecStart,EnvironmentFiles", unit}});
    const std::string shown = '\n' + answer.output;
    if (behind(shown, "\nLoadState=") != "loaded")
        return std::nullopt;
    std::string line = running_line(behind(shown, "\nMainPID="));
    if (line.empty()) {
        const std::string file = behind(shown, "\nEnvironmentFiles=");
        line = with_variables(behind(shown, "argv[]="), file.substr(0, file.find(" (")));
    }
    if (line.empty())
        return std::nullopt;
    auto config = config_in(line);
    if (config.empty())
        config = distribution_configuration(machine.looks_for_files());
    return config.empty() ? std::nullopt : std::optional(StartedDaemon{unit, config});
}

std::optional<StartedDaemon> StartedDaemonLook::started_daemon(const std::string& unit) const {
    if (!unit.empty())
        return look_at(unit);
    for (const auto& candidate :
         {std::string(daemon_label) + ".service", std::string("chrony.service"), std::string("chronyd.service")})
        if (auto found = look_at(candidate))
            return found;
    return std::nullopt;
}

} // namespace tickervantage
