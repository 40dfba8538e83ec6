// Whether the chronyd that chronyc asks runs on this machine, and whether it adjusts the clock.
//
// Other chronyds may run beside it: a container's, another user's. So the process is matched to the socket that
// answers, by its open files where they may be read. An ordinary user may not read those of the system's daemon: then
// every chronyd counts that can have made this socket, and where they differ nothing is known.
//
// Asked before every reading of the status: while the socket and the processes that it was matched to stay the same, a
// check costs two or three small files of the kernel. Keep on one thread.
// Sources: proc(5), chronyd(8) option -x.
#pragma once

#include "base/execute.h"
#include "chrony/reports/command_sockets.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

enum class ClockDiscipline : unsigned char {
    not_running, // nobody listens where chronyc asks
    adjusting,   // a chronyd that adjusts the system clock
    forbidden,   // a chronyd that was started with the option that forbids it
    unknown,     // somebody listens, here or on another machine, of whom it cannot be told
};

class RunningCheck {
public:
    // With the arguments that stand before chronyc's commands. `root` is the folder that this machine's files
    // lie in.
    explicit RunningCheck(std::vector<std::string> chronyc_arguments = {}, std::string root = {});

    [[nodiscard]] ClockDiscipline check();

private:
    struct Daemon {
        std::string pid;
        std::string command_line; // its words, divided by blanks
    };
    enum class Holds : unsigned char { no, perhaps, yes };

    [[nodiscard]] std::string command_line_of(const std::string& pid) const;
    [[nodiscard]] std::vector<Daemon> daemons() const;
    [[nodiscard]] Holds holds(const std::string& pid) const;
    [[nodiscard]] Holds holds(const std::string& pid, const CommandSocket& socket) const;
    [[nodiscard]] bool can_have_made(const std::string& pid, const CommandSocket& socket) const;
    [[nodiscard]] bool is_unchanged() const;
    [[nodiscard]] ClockDiscipline search();

    std::vector<std::string> m_arguments;
    std::string m_root;
    std::string m_proc;
    std::optional<std::vector<CommandSocket>> m_sockets; // of the last search
    std::vector<Daemon> m_daemons;                       // those that hold one of them, as far as that can be told
    ClockDiscipline m_answer = ClockDiscipline::not_running;
};

// Whether the clock is steered; none: not known, or nobody is there who would.
[[nodiscard]] std::optional<bool> steers(ClockDiscipline discipline);

// Whether any chronyd runs on this machine, whoever asks it. Blocks for as long as pgrep takes.
[[nodiscard]] bool any_chronyd_runs(Execute& execute);

// The short options of a chronyd's command line, each with its value, which is empty where the option takes none.
void each_option(std::string_view command_line, const std::function<void(char option, std::string value)>& tell);

// Whether a chronyd started with this command line (words separated by blanks) leaves the clock alone.
[[nodiscard]] bool forbids_adjustment(std::string_view command_line);

} // namespace tickervantage
