#include "chrony/demonstration/demonstration_supervisor.h"

#include "chrony/demonstration/recorded_day.h"
#include "linux/file_descriptor.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

#include <fmt/format.h>

namespace tickervantage {
namespace {

using Clock = std::chrono::steady_clock;

struct Daemon {
    std::string folder;
    pid_t pid = -1; // -1: not running
    std::uint16_t port = 0;

    [[nodiscard]] std::string file(const char* name) const { return folder + "/" + name; }
};

// A UDP port of that address of loopback that nobody uses at this moment; 0 when there is none.
std::uint16_t free_port(const char* of) {
    const FileDescriptor probe(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    (void)inet_pton(AF_INET, of, &address.sin_addr);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    const bool known = bind(probe.get(), plain, size) == 0 && getsockname(probe.get(), plain, &size) == 0;
    return known ? ntohs(address.sin_port) : std::uint16_t{0};
}

std::string common_config(const Daemon& daemon) {
    return fmt::format("cmdport 0\nbindcmdaddress {}\npidfile {}\n", daemon.file("chronyd.sock"),
                       daemon.file("chronyd.pid"));
}

// The first server is the best one, so that it is clear who is followed.
std::string server_config(const Daemon& daemon, std::size_t server) {
    return fmt::format("local stratum {}\nallow 127.0.0.0/8\nport {}\nbindaddress {}\n", demonstration_stratum(server),
                       daemon.port, demonstration_servers.at(server)) +
           common_config(daemon);
}

// People read it in the editor.
std::string client_config(const Daemon& daemon, const std::vector<Daemon>& servers) {
    std::string text =
        "# The demonstration's own chrony.conf: edit and install it as you like. Only the demonstration's\n"
        "# chronyd is restarted, and it never sets this computer's clock.\n\n"
        "# Three servers, which the demonstration runs on this computer. They are asked often and few samples\n"
        "# are kept, so that what happens to them shows within seconds.\n";
    for (std::size_t at = 0; at < servers.size(); ++at)
        text += fmt::format("server {} port {} minpoll {} maxpoll 0 maxsamples 8 iburst\n",
                            demonstration_servers.at(at), servers[at].port, at == 0 ? -2 : 0);
    return text +
           fmt::format("\n# Nobody is served.\nport 0\n\n# The clock's rate, for the next start.\ndriftfile {}\n\n"
                       "# What the graphs are drawn from.\nlogdir {}\nlog tracking measurements statistics\n\n"
                       "# How this program reaches chronyd: with other lines it loses sight of it.\n",
                       daemon.file("drift"), daemon.folder) +
           common_config(daemon);
}

// The one place where the command line of a daemon is made.
std::vector<std::string> daemon_arguments(const DemonstrationTask& task, const Daemon& daemon) {
    std::vector<std::string> words{task.chronyd, "-n", "-d",      "-4", "-U",
                                   "-x",         "-u", task.user, "-f", daemon.file("chrony.conf")};
    if (std::find(words.begin(), words.end(), "-x") == words.end())
        std::abort(); // never without: it would set the system clock
    return words;
}

// Runs in the forked child: becomes the daemon, or ends.
[[noreturn]] void become_daemon(std::vector<std::string> words, const std::string& output, pid_t supervisor) {
    (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != supervisor) // it went before the line above
        _exit(127);
    const int log = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
    (void)dup2(log, STDOUT_FILENO);
    (void)dup2(log, STDERR_FILENO);
    (void)std::signal(SIGPIPE, SIG_DFL); // NOLINT(concurrency-mt-unsafe): one thread here
    sigset_t none;
    sigemptyset(&none);
    (void)sigprocmask(SIG_SETMASK, &none, nullptr); // NOLINT(concurrency-mt-unsafe): one thread here
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    (void)execv(arguments[0], arguments.data());
    const std::string error = std::generic_category().message(errno);
    (void)!::write(STDERR_FILENO, error.data(), error.size());
    _exit(127);
}

// The last line of what a daemon printed, without its time.
std::string last_words(const Daemon& daemon) {
    std::ifstream file(daemon.file("output"));
    std::string result;
    for (std::string line; std::getline(file, line);)
        if (!line.empty())
            result = line;
    const auto blank = result.find(' ');
    const bool timed = blank != std::string::npos && blank > 1 && result[blank - 1] == 'Z';
    if (timed)
        result.erase(0, blank + 1);
    return result.empty() ? "without a word" : result;
}

enum class Event : unsigned char { came_up, died, abandoned, timeout, ordered };

class Supervisor {
public:
    explicit Supervisor(const DemonstrationTask& task) : m_task(task), m_client{task.folder + "/client"} {
        for (std::size_t at = 0; at < demonstration_servers.size(); ++at)
            m_servers.push_back({demonstration_server_folder(task.folder, at)});
        sigset_t handled;
        sigemptyset(&handled);
        for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
            sigaddset(&handled, signal);
        (void)sigprocmask(SIG_SETMASK, &handled, nullptr); // NOLINT(concurrency-mt-unsafe): one thread here
        m_signals.reset(signalfd(-1, &handled, SFD_CLOEXEC | SFD_NONBLOCK));
        m_files.reset(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    }

    void run() {
        std::string report;
        const bool is_up = bring_up(Clock::now() + demonstration_start_limit, report) == 0;
        (void)!::write(m_task.news, report.data(), report.size()); // nobody there: the next wait says so
        ::close(m_task.news);
        while (is_up) {
            const Event event = wait_for_news(Clock::time_point::max());
            if (event == Event::abandoned)
                break;
            if (event == Event::ordered)
                answer(std::exchange(m_order, {}));
        }
        end(all());
        std::error_code ignored; // nobody is left to tell
        (void)std::filesystem::remove_all(m_task.folder, ignored);
    }

private:
    std::vector<Daemon*> all() {
        std::vector<Daemon*> daemons{&m_client};
        for (Daemon& server : m_servers)
            daemons.push_back(&server);
        return daemons;
    }

    int bring_up(Clock::time_point deadline, std::string& report) {
        report = "The demonstration finds no free UDP port on loopback.";
        Event event = Event::died;
        Daemon* concerned = &m_client;
        for (std::size_t at = 0; at < m_servers.size(); ++at) {
            concerned = &m_servers[at];
            event = start_server(at, deadline);
            if (concerned->port == 0)
                return -1;
            if (event != Event::came_up)
                break;
        }
        if (event == Event::came_up) {
            concerned = &m_client;
            write_recorded_logs();
            std::ofstream(m_client.file("chrony.conf")) << client_config(m_client, m_servers);
            event = start(m_client, deadline);
        }
        report = event == Event::came_up ? "ok" : "The demonstration did not come up: " + complaint(*concerned, event);
        return event == Event::came_up ? 0 : -1;
    }

    [[nodiscard]] std::string complaint(const Daemon& daemon, Event event) const {
        return fmt::format("{} {}.", m_task.chronyd,
                           event == Event::died ? fmt::format("ended ({})", last_words(daemon))
                                                : std::string("did not answer in time"));
    }

    // Where chronyd goes on writing.
    void write_recorded_logs() const {
        const RecordedLogs logs = recorded_day(m_task.begun).logs;
        std::ofstream(m_client.file("tracking.log")) << logs.tracking;
        std::ofstream(m_client.file("measurements.log")) << logs.measurements;
        std::ofstream(m_client.file("statistics.log")) << logs.statistics;
    }

    Event start_server(std::size_t at, Clock::time_point deadline) {
        Daemon& server = m_servers[at];
        Event event = Event::died;
        constexpr int attempts = 3; // another program may take the port before the server does
        for (int attempt = 0; attempt < attempts && event == Event::died; ++attempt) {
            server.port = free_port(demonstration_servers.at(at));
            if (server.port == 0)
                break;
            // A configuration cut short makes the daemon complain.
            std::ofstream(server.file("chrony.conf")) << server_config(server, at);
            event = start(server, deadline);
        }
        return event;
    }

    void answer(const std::string& order) {
        const bool is_restart = order == restart_order;
        const std::size_t at = order.empty() ? 0 : static_cast<std::size_t>(order.back() - '0');
        Daemon* daemon = &m_client;
        if (!is_restart && at < m_servers.size())
            daemon = &m_servers[at];
        end({daemon});
        Event event = Event::came_up;
        if (is_restart || order.starts_with(put_back_order))
            event = start(*daemon, Clock::now() + demonstration_start_limit);
        if (event == Event::came_up && is_restart)
            event = look_once_more(*daemon);
        const std::string said = event == Event::came_up ? "ok" : complaint(*daemon, event);
        (void)::send(m_task.hold, said.data(), said.size(), MSG_NOSIGNAL); // nobody there: the next wait says so
    }

    // What chronyd cannot do it finds out some time after it has made its socket.
    Event look_once_more(const Daemon& daemon) {
        constexpr std::chrono::milliseconds while_it_starts(300);
        const auto deadline = Clock::now() + while_it_starts;
        Event event = Event::died;
        while (event == Event::died && daemon.pid > 0)
            event = wait_for_news(deadline);
        return daemon.pid > 0 ? Event::came_up : Event::died;
    }

    Event start(Daemon& daemon, Clock::time_point deadline) {
        (void)unlink(daemon.file("chronyd.sock").c_str()); // of a daemon that was killed
        (void)inotify_add_watch(m_files.get(), daemon.folder.c_str(), IN_CREATE);
        const pid_t self = getpid();
        const auto words = daemon_arguments(m_task, daemon);
        daemon.pid = fork();
        if (daemon.pid == 0)
            become_daemon(words, daemon.file("output"), self);
        while (true) {
            if (daemon.pid < 0)
                return Event::died;
            if (access(daemon.file("chronyd.sock").c_str(), F_OK) == 0)
                return Event::came_up;
            const auto event = wait_for_news(deadline);
            if (event == Event::abandoned || event == Event::timeout)
                return event;
        }
    }

    // Waits for a new file, an ended daemon, an order, the end of the program, or the deadline. `died` is any ended
    // daemon.
    Event wait_for_news(Clock::time_point deadline) {
        std::array<pollfd, 3> wanted{
            {{m_task.hold, POLLIN, 0}, {m_signals.get(), POLLIN, 0}, {m_files.get(), POLLIN, 0}}};
        const bool endless = deadline == Clock::time_point::max();
        const auto left = endless ? std::chrono::milliseconds(-1)
                                  : std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const int count =
            poll(wanted.data(), wanted.size(), endless ? -1 : static_cast<int>(std::max(left.count(), {})));
        if (count == 0)
            return Event::timeout;
        alignas(inotify_event) std::array<char, 4096> ignored{};
        (void)!::read(m_files.get(), ignored.data(), ignored.size()); // the folder is looked at anyway
        m_is_ended = take_signals() || m_is_ended;
        reap();
        if (m_is_ended || (wanted[0].revents != 0 && !take_order()))
            return Event::abandoned;
        return wanted[0].revents != 0 ? Event::ordered : Event::died;
    }

    // False when there will be no more.
    bool take_order() {
        std::array<char, 64> order{};
        const ssize_t count = ::recv(m_task.hold, order.data(), order.size(), MSG_DONTWAIT);
        m_order.assign(order.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        return count > 0;
    }

    // True when somebody asked this process to end.
    bool take_signals() {
        bool ended = false;
        signalfd_siginfo info{};
        while (::read(m_signals.get(), &info, sizeof info) == sizeof info)
            ended = ended || info.ssi_signo != SIGCHLD;
        return ended;
    }

    void reap() {
        for (auto* daemon : all())
            if (daemon->pid > 0 && waitpid(daemon->pid, nullptr, WNOHANG) == daemon->pid)
                daemon->pid = -1;
    }

    void end(const std::vector<Daemon*>& daemons) {
        constexpr std::chrono::seconds patience(2);
        const auto deadline = Clock::now() + patience;
        const auto signal_all = [&daemons](int signal) {
            for (const auto* daemon : daemons)
                if (daemon->pid > 0)
                    (void)kill(daemon->pid, signal);
        };
        signal_all(SIGTERM);
        reap();
        while (std::ranges::any_of(daemons, [](const auto* daemon) { return daemon->pid > 0; })) {
            pollfd wanted{m_signals.get(), POLLIN, 0};
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
            if (left <= 0 || poll(&wanted, 1, static_cast<int>(left)) == 0)
                break;
            m_is_ended = take_signals() || m_is_ended;
            reap();
        }
        signal_all(SIGKILL);
        for (auto* daemon : daemons)
            if (daemon->pid > 0 && waitpid(daemon->pid, nullptr, 0) == daemon->pid)
                daemon->pid = -1;
    }

    const DemonstrationTask& m_task;
    std::vector<Daemon> m_servers;
    Daemon m_client;
    std::string m_order;
    bool m_is_ended = false; // somebody asked this process to end
    FileDescriptor m_signals;
    FileDescriptor m_files;
};

// Keeps the socket and the pipe and nothing else, so that no pipe or file of the program stays open because of us.
void keep_only_pipes(DemonstrationTask& task) {
    constexpr int lowest_hold = 3;
    const int hold = fcntl(task.hold, F_DUPFD_CLOEXEC, 100); // out of the way of both final places
    const int news = fcntl(task.news, F_DUPFD_CLOEXEC, 100);
    task.hold = dup3(hold, lowest_hold, O_CLOEXEC);
    task.news = dup3(news, lowest_hold + 1, O_CLOEXEC);
    (void)close_range(lowest_hold + 2, ~0U, 0);
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        (void)dup2(null, standard);
    ::close(null);
}

} // namespace

std::string demonstration_server_folder(const std::string& folder, std::size_t server) {
    return folder + "/server" + (server == 0 ? std::string() : std::to_string(server + 1));
}

void supervise_demonstration(const DemonstrationTask& task) {
    (void)setsid(); // the terminal's signals go to the program alone
    (void)prctl(PR_SET_NAME, "tv-demo");
    // The program's handlers are not for this process.
    for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP})
        (void)std::signal(signal, SIG_DFL); // NOLINT(concurrency-mt-unsafe): one thread here
    (void)std::signal(SIGPIPE, SIG_IGN);    // NOLINT(concurrency-mt-unsafe): one thread here
    DemonstrationTask own = task;
    keep_only_pipes(own);
    {
        Supervisor supervisor(own);
        supervisor.run();
    }
    _exit(0);
}

} // namespace tickervantage
