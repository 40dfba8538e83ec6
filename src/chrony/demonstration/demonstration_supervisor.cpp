#include "chrony/demonstration/demonstration_supervisor.h"

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
#include <vector>

#include <fmt/format.h>

namespace tickervantage {
namespace {

using Clock = std::chrono::steady_clock;

struct Daemon {
    std::string folder;
    pid_t pid = -1; // -1: not running

    [[nodiscard]] std::string file(const char* name) const { return folder + "/" + name; }
};

// A UDP port of loopback that nobody uses at this moment; 0 when there is none.
std::uint16_t free_port() {
    const FileDescriptor probe(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    const bool known = bind(probe.get(), plain, size) == 0 && getsockname(probe.get(), plain, &size) == 0;
    return known ? ntohs(address.sin_port) : std::uint16_t{0};
}

std::string common_config(const Daemon& daemon) {
    return fmt::format("cmdport 0\nbindcmdaddress {}\npidfile {}\n", daemon.file("chronyd.sock"),
                       daemon.file("chronyd.pid"));
}

std::string server_config(const Daemon& daemon, std::uint16_t port) {
    return fmt::format("local stratum 5\nallow 127.0.0.1\nport {}\nbindaddress 127.0.0.1\n", port) +
           common_config(daemon);
}

std::string client_config(const Daemon& daemon, std::uint16_t server_port) {
    return fmt::format("server 127.0.0.1 port {} minpoll -2 maxpoll 0 iburst\nport 0\ndriftfile {}\nlogdir {}\n"
                       "log tracking\n",
                       server_port, daemon.file("drift"), daemon.folder) +
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

enum class Event : unsigned char { came_up, died, abandoned, timeout };

class Supervisor {
public:
    explicit Supervisor(const DemonstrationTask& task)
        : m_task(task), m_server{task.folder + "/server"}, m_client{task.folder + "/client"} {
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
        const auto deadline = Clock::now() + demonstration_start_limit;
        const bool is_up = bring_up(deadline, report) == 0;
        (void)!::write(m_task.news, report.data(), report.size()); // nobody there: the next wait says so
        ::close(m_task.news);
        while (is_up && wait_for_news(Clock::time_point::max()) != Event::abandoned) {
        }
        end_all();
        std::error_code ignored; // nobody is left to tell
        (void)std::filesystem::remove_all(m_task.folder, ignored);
    }

private:
    int bring_up(Clock::time_point deadline, std::string& report) {
        Event event = Event::died;
        std::uint16_t port = 0;
        report = "The demonstration finds no free UDP port on loopback.";
        constexpr int attempts = 3; // another program may take the port before the server does
        for (int attempt = 0; attempt < attempts && event == Event::died; ++attempt) {
            port = free_port();
            if (port == 0)
                return -1;
            event = start(m_server, server_config(m_server, port), deadline);
        }
        Daemon* concerned = &m_server;
        if (event == Event::came_up) {
            concerned = &m_client;
            event = start(m_client, client_config(m_client, port), deadline);
        }
        report = "ok";
        if (event == Event::came_up)
            return 0;
        report = fmt::format("The demonstration did not come up: {} {}.", m_task.chronyd,
                             event == Event::died ? fmt::format("ended ({})", last_words(*concerned))
                                                  : std::string("did not answer in time"));
        return -1;
    }

    Event start(Daemon& daemon, const std::string& config, Clock::time_point deadline) {
        std::ofstream(daemon.file("chrony.conf")) << config; // a config cut short makes the daemon complain
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

    // Waits for a new file, an ended daemon, the end of the program, or the deadline. `died` is any ended daemon.
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
        const bool ended = take_signals();
        reap();
        return ended || wanted[0].revents != 0 ? Event::abandoned : Event::died;
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
        for (auto* daemon : {&m_server, &m_client})
            if (daemon->pid > 0 && waitpid(daemon->pid, nullptr, WNOHANG) == daemon->pid)
                daemon->pid = -1;
    }

    void signal_all(int signal) {
        for (auto* daemon : {&m_server, &m_client})
            if (daemon->pid > 0)
                (void)kill(daemon->pid, signal);
    }

    void end_all() {
        constexpr std::chrono::seconds patience(2);
        const auto deadline = Clock::now() + patience;
        signal_all(SIGTERM);
        reap();
        while (m_server.pid > 0 || m_client.pid > 0) {
            pollfd wanted{m_signals.get(), POLLIN, 0};
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
            if (left <= 0 || poll(&wanted, 1, static_cast<int>(left)) == 0)
                break;
            (void)take_signals();
            reap();
        }
        signal_all(SIGKILL);
        for (auto* daemon : {&m_server, &m_client})
            if (daemon->pid > 0)
                (void)waitpid(daemon->pid, nullptr, 0);
    }

    const DemonstrationTask& m_task;
    Daemon m_server;
    Daemon m_client;
    FileDescriptor m_signals;
    FileDescriptor m_files;
};

// Keeps the two pipes and nothing else, so that no pipe or file of the program stays open because of us.
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
