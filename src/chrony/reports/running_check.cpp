#include "chrony/reports/running_check.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

namespace tickervantage {
namespace {

struct Process {
    std::string pid;
    bool forbidden = false;
};

std::vector<Process> processes_of(const std::string& pgrep_output) {
    std::vector<Process> found;
    std::istringstream lines(pgrep_output);
    for (std::string line; std::getline(lines, line);) {
        const auto blank = line.find(' ');
        // A process that has ended but was not waited for is listed without arguments.
        if (blank == std::string::npos || line.ends_with("<defunct>") || line.find_first_not_of("0123456789") != blank)
            continue;
        found.push_back({line.substr(0, blank), forbids_adjustment(std::string_view(line).substr(blank + 1))});
    }
    return found;
}

} // namespace

void each_option(std::string_view command_line, const std::function<void(char option, std::string value)>& tell) {
    // Short options may share a word ("-Ux"); the rest of a word behind an option that takes a value is that value.
    constexpr std::string_view take_value = "fFlLPtu";
    std::istringstream words{std::string(command_line)};
    std::string word;
    words >> word; // the program
    while (words >> word) {
        if (word.size() < 2 || word.front() != '-' || word == "--")
            continue;
        const auto last = std::min(word.find_first_of(take_value, 1), word.size());
        for (std::size_t at = 1; at < last; ++at)
            tell(word[at], {});
        if (last == word.size())
            continue;
        const char option = word[last];
        if (last < word.size() - 1)
            word.erase(0, last + 1);
        else
            words >> word; // the option's value is the next word
        tell(option, word);
    }
}

bool forbids_adjustment(std::string_view command_line) {
    bool is_forbidden = false;
    each_option(command_line,
                [&is_forbidden](char option, const std::string&) { is_forbidden = is_forbidden || option == 'x'; });
    return is_forbidden;
}

RunningCheck::RunningCheck(Execute& execute, std::string pidfile, std::string proc)
    : m_execute(execute), m_pidfile(std::move(pidfile)), m_proc(std::move(proc)) {}

std::string RunningCheck::command_line_of(const std::string& pid) const {
    std::ifstream file(m_proc + "/" + pid + "/cmdline", std::ios::binary);
    constexpr std::size_t cap = 4096;
    std::string text(cap, '\0');
    file.read(text.data(), static_cast<std::streamsize>(cap));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

ClockDiscipline RunningCheck::check() {
    if (!m_pid.empty() && !m_command_line.empty() && command_line_of(m_pid) == m_command_line)
        return m_answer;
    m_answer = search();
    m_command_line = m_pid.empty() ? std::string() : command_line_of(m_pid);
    return m_answer;
}

ClockDiscipline RunningCheck::search() {
    ExecuteRequest request{.program = "/usr/bin/pgrep", .arguments = {"-a", "-x"}};
    if (!m_pidfile.empty())
        request.arguments.insert(request.arguments.end(), {"-F", m_pidfile});
    request.arguments.emplace_back("chronyd");
    m_pid.clear();
    auto answer = ClockDiscipline::not_running;
    for (const auto& process : processes_of(m_execute.run(request).output)) {
        if (process.forbidden && answer != ClockDiscipline::not_running)
            continue;
        m_pid = process.pid;
        answer = process.forbidden ? ClockDiscipline::forbidden : ClockDiscipline::adjusting;
        if (answer == ClockDiscipline::adjusting)
            break; // one daemon that adjusts the clock is enough
    }
    return answer;
}

} // namespace tickervantage
