#include "programs/tickerctl/password_prompt.h"

#include "platform/linux/file_descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

namespace tickervantage {
namespace {

constexpr const char* agent_path = "/usr/bin/pkttyagent";
constexpr int registration_limit = 5000; // milliseconds

// The agent's end of the pipe has the same number in the agent, and is not closed there on the way.
pid_t start_agent(int told) {
    const std::string number = std::to_string(told);
    std::array<std::string, 4> words{agent_path, "--notify-fd", number, "--fallback"};
    std::array<char*, 5> argv{words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, told, told); // the one way to let it live through the start
    pid_t agent = -1;
    const int result = posix_spawn(&agent, agent_path, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return result == 0 ? agent : -1;
}

} // namespace

PasswordPrompt::PasswordPrompt() {
    std::array<int, 2> ends{};
    if (isatty(STDIN_FILENO) == 0 || access(agent_path, X_OK) != 0 || pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    const FileDescriptor told(ends[0]);
    {
        const FileDescriptor teller(ends[1]);
        m_agent = start_agent(ends[1]);
    }
    pollfd closed{.fd = ends[0], .events = POLLIN, .revents = 0}; // the agent closes its end when it is ready
    (void)poll(&closed, 1, m_agent > 0 ? registration_limit : 0);
}

PasswordPrompt::~PasswordPrompt() {
    if (m_agent <= 0)
        return;
    (void)kill(m_agent, SIGTERM);
    while (waitpid(m_agent, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace tickervantage
