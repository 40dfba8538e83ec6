#include "chrony/reports/running_check.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

namespace tickervantage {
namespace {

namespace fs = std::filesystem;

bool is_number(const std::string& name) {
    return !name.empty() && name.find_first_not_of("0123456789") == std::string::npos;
}

std::string start_of(const std::string& path) {
    constexpr std::size_t cap = 4096;
    std::ifstream file(path, std::ios::binary);
    std::string text(cap, '\0');
    file.read(text.data(), static_cast<std::streamsize>(cap));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

// None when they may not be read.
std::optional<std::vector<std::string>> open_files(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> files;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        files.push_back(fs::read_symlink(entry->path(), error));
    return error ? std::nullopt : std::optional(std::move(files));
}

// The table of sockets in the process's network; everybody may read it. True where that cannot be told.
bool shares_network(const std::string& process, const CommandSocket& socket) {
    std::ifstream table(process + (socket.path.empty() ? "/net/udp" : "/net/unix"));
    std::ifstream six(process + (socket.path.empty() ? "/net/udp6" : "/net/unix"));
    if (!table && !six)
        return true;
    const std::string word = ' ' + socket.inode + ' ';
    for (std::ifstream* const file : {&table, &six})
        for (std::string line; std::getline(*file, line);)
            if (line.find(word) != std::string::npos)
                return true;
    return false;
}

// Whether the name of the socket leads the process, in its own file system, to the file that it leads us to.
bool shares_file(const std::string& process, const std::string& path) {
    struct stat ours {};
    struct stat its {};
    if (path.empty() || ::stat(path.c_str(), &ours) != 0)
        return true;
    if (::stat((process + "/root" + path).c_str(), &its) != 0)
        return errno != ENOENT;
    return ours.st_dev == its.st_dev && ours.st_ino == its.st_ino;
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

std::optional<bool> steers(ClockDiscipline discipline) {
    const bool is_known = discipline == ClockDiscipline::adjusting || discipline == ClockDiscipline::forbidden;
    return is_known ? std::optional(discipline == ClockDiscipline::adjusting) : std::nullopt;
}

bool any_chronyd_runs(Execute& execute) {
    const auto listed = execute.run({.program = "/usr/bin/pgrep", .arguments = {"-a", "-x", "chronyd"}});
    std::istringstream lines(listed.output);
    for (std::string line; std::getline(lines, line);)
        // A process that has ended but was not waited for is listed without arguments.
        if (const auto blank = line.find(' ');
            blank != std::string::npos && is_number(line.substr(0, blank)) && !line.ends_with("<defunct>"))
            return true;
    return false;
}

RunningCheck::RunningCheck(std::vector<std::string> chronyc_arguments, std::string root)
    : m_arguments(std::move(chronyc_arguments)), m_root(std::move(root)), m_proc(m_root + "/proc") {}

std::string RunningCheck::command_line_of(const std::string& pid) const {
    std::string line = start_of(m_proc + '/' + pid + "/cmdline");
    std::ranges::replace(line, '\0', ' ');
    return line;
}

// One that has ended but was not waited for has no command line.
std::vector<RunningCheck::Daemon> RunningCheck::daemons() const {
    std::vector<Daemon> found;
    std::error_code ignored;
    for (fs::directory_iterator entry(m_proc, ignored), end; !ignored && entry != end; entry.increment(ignored)) {
        const std::string pid = entry->path().filename();
        if (!is_number(pid) || start_of(m_proc + '/' + pid + "/comm") != "chronyd\n")
            continue;
        if (auto line = command_line_of(pid); !line.empty())
            found.push_back({.pid = pid, .command_line = std::move(line)});
    }
    return found;
}

// A process that still is whom it was started as owns its files in the process file system, and made its sockets as
// such; one that gave up root's rights does not own them, and may have made sockets before.
bool RunningCheck::can_have_made(const std::string& pid, const CommandSocket& socket) const {
    const std::string process = m_proc + '/' + pid;
    struct stat now {};
    struct stat files {};
    if (::stat(process.c_str(), &now) != 0)
        return false;
    const bool is_as_started = ::stat((process + "/fd").c_str(), &files) == 0 && files.st_uid == now.st_uid;
    return now.st_uid == socket.maker || (socket.maker == 0 && !is_as_started);
}

RunningCheck::Holds RunningCheck::holds(const std::string& pid, const CommandSocket& socket) const {
    const std::string process = m_proc + '/' + pid;
    if (const auto files = open_files(process + "/fd")) {
        const bool is_open = std::ranges::find(*files, "socket:[" + socket.inode + ']') != files->end();
        return is_open && shares_file(process, socket.path) ? Holds::yes : Holds::no;
    }
    return can_have_made(pid, socket) && shares_network(process, socket) ? Holds::perhaps : Holds::no;
}

RunningCheck::Holds RunningCheck::holds(const std::string& pid) const {
    Holds most = Holds::no;
    for (const CommandSocket& socket : *m_sockets)
        most = std::max(most, holds(pid, socket));
    return most;
}

bool RunningCheck::is_unchanged() const {
    return m_answer != ClockDiscipline::unknown && std::ranges::all_of(m_daemons, [this](const Daemon& daemon) {
               return command_line_of(daemon.pid) == daemon.command_line;
           });
}

ClockDiscipline RunningCheck::check() {
    auto sockets = command_sockets(m_arguments, m_root);
    if (sockets && sockets == m_sockets && is_unchanged())
        return m_answer;
    m_sockets = std::move(sockets);
    return m_answer = search();
}

ClockDiscipline RunningCheck::search() {
    m_daemons.clear();
    if (!m_sockets || m_sockets->empty())
        return m_sockets ? ClockDiscipline::not_running : ClockDiscipline::unknown;
    Holds most = Holds::perhaps;
    for (Daemon& daemon : daemons()) {
        const Holds it = holds(daemon.pid);
        if (it < most)
            continue;
        if (it > most)
            m_daemons.clear();
        most = it;
        m_daemons.push_back(std::move(daemon));
    }
    const auto forbidden =
        std::ranges::count_if(m_daemons, [](const Daemon& daemon) { return forbids_adjustment(daemon.command_line); });
    if (m_daemons.empty() || (forbidden != 0 && forbidden != std::ssize(m_daemons)))
        return ClockDiscipline::unknown;
    return forbidden == 0 ? ClockDiscipline::adjusting : ClockDiscipline::forbidden;
}

} // namespace tickervantage
