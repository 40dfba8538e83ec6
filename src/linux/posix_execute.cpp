#include "linux/posix_execute.h"

#include "base/failure_codes.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <fmt/format.h>

namespace tickervantage {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<std::string> environment_in_c_locale() {
    std::vector<std::string> result;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        if (!text.starts_with("LC_") && !text.starts_with("LANG"))
            result.emplace_back(text);
    }
    result.emplace_back("LC_ALL=C");
    return result;
}

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (const auto& text : texts)
        result.push_back(const_cast<char*>(text.c_str())); // posix_spawn's signature; it does not write
    result.push_back(nullptr);
    return result;
}

class SpawnSettings {
public:
    explicit SpawnSettings(int output) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        posix_spawnattr_init(&m_attributes);
        sigset_t none;
        sigemptyset(&none);
        sigset_t defaults;
        sigemptyset(&defaults);
        sigaddset(&defaults, SIGPIPE);
        sigaddset(&defaults, SIGINT);
        sigaddset(&defaults, SIGTERM);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &defaults);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &m_actions; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

// A program that was started, until it has been waited for. Left early, it is ended with its whole group.
class Child {
public:
    explicit Child(pid_t pid) : m_pid(pid), m_descriptor(static_cast<int>(syscall(SYS_pidfd_open, pid, 0))) {}
    ~Child() {
        if (m_pid > 0)
            (void)end();
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor.get(); }

    int end() {
        ::kill(-m_pid, SIGKILL);
        return wait();
    }

    int wait() {
        int status = 0;
        while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
        }
        m_pid = -1;
        return status;
    }

private:
    pid_t m_pid;
    FileDescriptor m_descriptor;
};

enum class Ready : unsigned char { output, ended, timeout, cancelled };

Ready wait_for_news(int output, int child, int cancelled, Clock::time_point deadline) {
    // A negative descriptor is skipped: the output after its end, the child where the kernel has no descriptor for it.
    std::array<pollfd, 3> wanted{{{output, POLLIN, 0}, {child, POLLIN, 0}, {cancelled, POLLIN, 0}}};
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        const int count = left <= 0 ? 0 : poll(wanted.data(), wanted.size(), static_cast<int>(left));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return Ready::timeout;
        if (wanted[2].revents != 0)
            return Ready::cancelled;
        return wanted[0].revents != 0 ? Ready::output : Ready::ended;
    }
}

// Appends what the pipe holds now. False at the end of the output.
bool read_available(int fd, std::string& output, std::size_t limit) {
    std::array<char, 65536> buffer; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by read
    while (output.size() < limit) {
        const ssize_t count = ::read(fd, buffer.data(), std::min(buffer.size(), limit - output.size()));
        if (count > 0)
            output.append(buffer.data(), static_cast<std::size_t>(count));
        else if (count < 0 && errno == EINTR)
            continue;
        else
            return count < 0 && errno == EAGAIN;
    }
    return true;
}

void finish(ExecuteResult& result, int status, const std::string& program) {
    if (WIFEXITED(status)) {
        result.outcome = ExecuteOutcome::exited;
        result.exit_status = WEXITSTATUS(status);
    } else {
        result.outcome = ExecuteOutcome::signalled;
        const char* name = sigdescr_np(WTERMSIG(status));
        result.failure = failed(FailureCode::ended_by_signal,
                                {program, std::to_string(WTERMSIG(status)), name != nullptr ? name : "unknown"})
                             .value();
    }
}

void collect(const ExecuteRequest& request, int cancelled, FileDescriptor output, Child& child, ExecuteResult& result) {
    const auto deadline = Clock::now() + request.time_limit;
    while (true) {
        switch (wait_for_news(output.get(), child.descriptor(), cancelled, deadline)) {
        case Ready::output:
            if (!read_available(output.get(), result.output, request.output_limit))
                output.reset();
            if (!output.valid() && child.descriptor() < 0) { // no process descriptors here: all that is left is to wait
                finish(result, child.wait(), request.program);
                return;
            }
            if (result.output.size() >= request.output_limit) {
                result.outcome = ExecuteOutcome::too_long;
                result.failure = failed(FailureCode::printed_too_much,
                                        {request.program, std::to_string(request.output_limit / 1024)})
                                     .value();
                return;
            }
            break;
        case Ready::ended:
            // The program has gone; a child of its own that keeps the pipe open is not waited for.
            if (output.valid())
                (void)read_available(output.get(), result.output, request.output_limit);
            finish(result, child.wait(), request.program);
            return;
        case Ready::timeout:
            result.outcome = ExecuteOutcome::timed_out;
            result.failure = failed(FailureCode::did_not_end,
                                    {request.program,
                                     fmt::format("{:.3g}", std::chrono::duration<double>(request.time_limit).count())})
                                 .value();
            return;
        case Ready::cancelled:
            result.outcome = ExecuteOutcome::cancelled;
            result.failure = failed(FailureCode::ended_for_closing, {request.program}).value();
            return;
        }
    }
}

ExecuteResult not_started(const std::string& program, int error) {
    ExecuteResult result;
    result.failure = failed(FailureCode::cannot_be_started, {program}, error).value();
    return result;
}

} // namespace

PosixExecute::PosixExecute()
    : m_environment(environment_in_c_locale()), m_cancelled(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void PosixExecute::cancel() {
    const std::uint64_t one = 1;
    (void)!::write(m_cancelled.get(), &one, sizeof one); // fails only when it is full, that is, cancelled already
}

ExecuteResult PosixExecute::run(const ExecuteRequest& request) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return not_started(request.program, errno);
    FileDescriptor read_end(ends[0]);
    FileDescriptor write_end(ends[1]);
    (void)fcntl(read_end.get(), F_SETFL, O_NONBLOCK);

    std::vector<std::string> words{request.program};
    words.insert(words.end(), request.arguments.begin(), request.arguments.end());
    auto arguments = pointers(words);
    auto environment = pointers(m_environment);
    const SpawnSettings settings(write_end.get());
    pid_t pid = -1;
    const int error = posix_spawn(&pid, request.program.c_str(), settings.actions(), settings.attributes(),
                                  arguments.data(), environment.data());
    if (error != 0)
        return not_started(request.program, error);
    write_end.reset();

    ExecuteResult result;
    Child child(pid);
    collect(request, m_cancelled.get(), std::move(read_end), child, result);
    return result;
}

} // namespace tickervantage
