#include "roothelper/client/terminal_agent.h"

#include "linux/file_descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>

namespace tickervantage {
namespace {

constexpr const char* program = "/usr/bin/pkttyagent";
constexpr int patience_milliseconds = 2000;
constexpr int notify_descriptor = 3; // in the agent, which closes it once it is known

bool is_on_desktop() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes them
    return ::getenv("WAYLAND_DISPLAY") != nullptr || ::getenv("DISPLAY") != nullptr;
}

pid_t start_agent(int notify) {
    const auto process = std::to_string(::getpid());
    const auto descriptor = std::to_string(notify_descriptor);
    // polkit leaves an agent of last resort unused where the user has no session, as behind su or in a container.
    const char* precedence = is_on_desktop() ? "--fallback" : nullptr;
    std::array<const char*, 7> words{program,    "--process", process.c_str(), "--notify-fd", descriptor.c_str(),
                                     precedence, nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, notify, notify_descriptor);
    ::posix_spawn_file_actions_addclosefrom_np(&actions, notify_descriptor + 1);
    pid_t agent = -1;
    // posix_spawn's signature; it does not write to the words.
    const int error =
        ::posix_spawn(&agent, program, &actions, nullptr, const_cast<char* const*>(words.data()), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? agent : -1;
}

} // namespace

TerminalAgent::TerminalAgent() {
    std::array<int, 2> ends{};
    if (::isatty(STDIN_FILENO) == 0 || ::pipe2(ends.data(), O_CLOEXEC) != 0)
        return;
    const FileDescriptor known(ends[0]);
    FileDescriptor notify(ends[1]);
    m_agent = start_agent(notify.get());
    notify.reset();
    pollfd wanted{known.get(), 0, 0}; // the end of the pipe is always told
    if (m_agent > 0)
        (void)::poll(&wanted, 1, patience_milliseconds);
}

TerminalAgent::~TerminalAgent() {
    if (m_agent <= 0)
        return;
    ::kill(m_agent, SIGTERM);
    while (::waitpid(m_agent, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace tickervantage
