#include "cli/end_signals.h"

#include "linux/posix_execute.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>

namespace tickervantage {
namespace {

constexpr std::array end_signals{SIGINT, SIGTERM, SIGHUP, SIGPIPE};

// A handler takes no arguments of ours, so what it needs lies here.
std::atomic<PosixExecute*> g_execute = nullptr;
std::atomic<int> g_wake = -1;
std::atomic<int> g_signal = 0;

void on_signal(int number) {
    const int error = errno;
    int none = 0;
    (void)g_signal.compare_exchange_strong(none, number);
    const std::uint64_t one = 1;
    (void)!::write(g_wake, &one, sizeof one); // fails only when it is full, that is, woken already
    if (auto* execute = g_execute.load(); execute != nullptr)
        execute->cancel();
    errno = error;
}

void set_handlers(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler; // without SA_RESTART: a read from the terminal has to return
    for (const int number : end_signals)
        (void)sigaction(number, &action, nullptr); // fails only for an unknown number
}

} // namespace

EndSignals::EndSignals(PosixExecute& execute) : m_woken(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    g_execute = &execute;
    g_wake = m_woken.get();
    set_handlers(on_signal);
}

EndSignals::~EndSignals() {
    set_handlers(SIG_DFL);
    g_execute = nullptr;
    g_wake = -1;
}

bool EndSignals::asked_within(double seconds) const {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd wanted{m_woken.get(), POLLIN, 0};
        const int count = poll(&wanted, 1, left <= 0 ? 0 : static_cast<int>(left));
        if (count >= 0 || errno != EINTR)
            return count > 0;
    }
}

int end_signal() {
    return g_signal;
}

void end_as_asked() {
    if (g_signal != 0)
        (void)std::raise(g_signal);
}

} // namespace tickervantage
