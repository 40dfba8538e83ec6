#include "roothelper/service/child_process.h"

#include "base/failure_codes.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <utility>

namespace tickervantage {
namespace {

constexpr int cannot_start = 127;

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

bool take_identity(const ChildIdentity& identity) {
    const bool groups =
        identity.name.empty() ? ::setgroups(0, nullptr) == 0 : ::initgroups(identity.name.c_str(), identity.group) == 0;
    return groups && ::setresgid(identity.group, identity.group, identity.group) == 0 &&
           ::setresuid(identity.user, identity.user, identity.user) == 0 && ::prctl(PR_SET_DUMPABLE, 0) == 0;
}

void connect_streams(int output, bool errors_only) {
    const int nothing = ::open("/dev/null", O_RDWR);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(errors_only ? nothing : output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
}

void forget_signals() {
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr); // NOLINT(concurrency-mt-unsafe): one thread after the fork
    for (const int number : {SIGPIPE, SIGINT, SIGTERM, SIGCHLD})
        ::signal(number, SIG_DFL);
}

int run_program(std::vector<std::string>& argv) {
    std::vector<std::string> environment{"PATH=/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C", "HOME=/", "SHELL=/bin/sh"};
    const auto arguments = pointers(argv);
    const auto variables = pointers(environment);
    ::execve(arguments[0], arguments.data(), variables.data());
    const auto text = english(failed(FailureCode::program_not_started, {argv[0]}, errno).value()) + '\n';
    (void)!::write(STDOUT_FILENO, text.data(), text.size()); // nobody else to tell
    return cannot_start;
}

[[noreturn]] void child_main(ChildTask& task, int output) {
    ::setpgid(0, 0);
    connect_streams(output, task.errors_only);
    forget_signals();
    if (task.identity && !take_identity(*task.identity))
        ::_exit(cannot_start);
    ::_exit(task.body != nullptr ? task.body(task) : run_program(task.argv));
}

std::uint64_t microseconds(std::chrono::seconds time) {
    return static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
}

} // namespace

ChildProcess::ChildProcess(sd_event* event, ChildTask task, Done done)
    : m_task(std::move(task)), m_done(std::move(done)) {
    if (start(event) == 0 && watch(event) == 0)
        return;
    m_end.failure = Failure{.code = FailureCode::no_process};
    sd_event_source* source = nullptr;
    sd_event_add_defer(
        event, &source,
        [](sd_event_source*, void* self) {
            static_cast<ChildProcess*>(self)->finish();
            return 0;
        },
        this);
    m_failure_source.reset(source);
}

ChildProcess::~ChildProcess() {
    m_child_source.reset(); // or it would look at a child that is not there any more
    if (m_pid <= 0)
        return;
    ::kill(-m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
}

int ChildProcess::start(sd_event*) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return -1;
    m_output.reset(ends[0]);
    const FileDescriptor write_end(ends[1]);
    (void)::fcntl(write_end.get(), F_SETFL, 0); // a program may not expect that its output is not taken at once
    m_pid = ::fork();
    if (m_pid == 0)
        child_main(m_task, write_end.get());
    if (m_pid < 0)
        return -1;
    ::setpgid(m_pid, m_pid); // here as well: whichever of the two comes first
    return 0;
}

int ChildProcess::watch(sd_event* event) {
    sd_event_source* source = nullptr;
    const auto on_output = [](sd_event_source*, int, std::uint32_t, void* self) {
        auto* child = static_cast<ChildProcess*>(self);
        if (!child->read_output())
            child->m_output_source.reset();
        return 0;
    };
    if (sd_event_add_io(event, &source, m_output.get(), EPOLLIN, on_output, this) < 0)
        return -1;
    m_output_source.reset(source);
    const auto on_end = [](sd_event_source*, const siginfo_t* info, void* self) {
        auto* child = static_cast<ChildProcess*>(self);
        child->m_end.status = info->si_code == CLD_EXITED ? info->si_status : -1;
        if (child->m_end.status < 0 && !child->m_end.failure)
            child->m_end.failure =
                Failure{.code = FailureCode::command_ended_by_signal, .arguments = {std::to_string(info->si_status)}};
        child->finish();
        return 0;
    };
    if (sd_event_add_child(event, &source, m_pid, WEXITED, on_end, this) < 0)
        return -1;
    m_child_source.reset(source);
    const auto on_time = [](sd_event_source*, std::uint64_t, void* self) {
        auto* child = static_cast<ChildProcess*>(self);
        child->end_because(
            {.code = FailureCode::command_too_slow, .arguments = {std::to_string(child->m_task.time_limit.count())}});
        return 0;
    };
    if (sd_event_add_time_relative(event, &source, CLOCK_MONOTONIC, microseconds(m_task.time_limit), 0, on_time, this) <
        0)
        return -1;
    m_time_source.reset(source);
    return 0;
}

// False at the end of the output, or when there is too much of it.
bool ChildProcess::read_output() {
    std::array<char, 65536> buffer{};
    const ssize_t got = ::read(m_output.get(), buffer.data(), buffer.size());
    if (got <= 0)
        return got < 0 && (errno == EAGAIN || errno == EINTR);
    m_end.output.append(buffer.data(), static_cast<std::size_t>(got));
    if (m_end.output.size() <= m_task.output_limit)
        return true;
    m_end.output.resize(m_task.output_limit);
    end_because({.code = FailureCode::command_too_long});
    return false;
}

void ChildProcess::end_because(Failure why) {
    m_end.failure = std::move(why);
    ::kill(-m_pid, SIGKILL);
}

void ChildProcess::finish() {
    if (m_pid > 0) {
        ::kill(-m_pid, SIGKILL); // children that the program left behind
        while (m_output_source && m_end.output.size() < m_task.output_limit) {
            const auto before = m_end.output.size();
            if (!read_output() || m_end.output.size() == before)
                break;
        }
    }
    m_pid = -1; // reaped by the event loop
    m_output_source.reset();
    m_time_source.reset();
    const auto done = std::move(m_done);
    done(std::move(m_end));
}

} // namespace tickervantage
