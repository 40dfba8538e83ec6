// Whether a chronyd runs on this machine, and whether it adjusts the clock.
//
// Asked before every reading of the status, so a process that was found is only looked at again, which costs a file
// read; the list of processes is searched when that one has gone or changed. Keep on one thread.
// Sources: pgrep(1), proc(5), chronyd(8) option -x.
#pragma once

#include "base/execute.h"

#include <functional>
#include <string>
#include <string_view>

namespace tickervantage {

enum class ClockDiscipline : unsigned char {
    not_running, // no chronyd process
    adjusting,   // a chronyd that adjusts the system clock
    forbidden,   // a chronyd that was started with the option that forbids it
};

class RunningCheck {
public:
    // With a file that holds a process number only that process counts. `proc` is the process file system.
    explicit RunningCheck(Execute& execute, std::string pidfile = {}, std::string proc = "/proc");

    // Blocks for as long as pgrep takes.
    [[nodiscard]] ClockDiscipline check();

private:
    [[nodiscard]] std::string command_line_of(const std::string& pid) const;
    [[nodiscard]] ClockDiscipline search();

    Execute& m_execute;
    std::string m_pidfile;
    std::string m_proc;
    std::string m_pid;          // the process that the last search found; empty when none
    std::string m_command_line; // its arguments, as the process file system tells them
    ClockDiscipline m_answer = ClockDiscipline::not_running;
};

// The short options of a chronyd's command line, each with its value, which is empty where the option takes none.
void each_option(std::string_view command_line, const std::function<void(char option, std::string value)>& tell);

// Whether a chronyd started with this command line (words separated by blanks) leaves the clock alone.
[[nodiscard]] bool forbids_adjustment(std::string_view command_line);

} // namespace tickervantage
