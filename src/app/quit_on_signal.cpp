#include "app/quit_on_signal.h"

#include <QApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>

namespace tickervantage {
namespace {

sigset_t quit_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGHUP);
    return signals;
}

} // namespace

void block_quit_signals() {
    const sigset_t signals = quit_signals();
    (void)pthread_sigmask(SIG_BLOCK, &signals, nullptr); // fails only for an unknown first argument
}

QuitOnSignal::QuitOnSignal() {
    const sigset_t signals = quit_signals();
    m_signals.reset(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!m_signals.valid())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_signals.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, qApp, [this] {
        signalfd_siginfo info{};
        if (::read(m_signals.get(), &info, sizeof info) == sizeof info)
            QApplication::closeAllWindows(); // the windows save what they have
        QCoreApplication::exit(0);           // quit() would ask the windows, and one with unsaved changes says no
    });
}

QuitOnSignal::~QuitOnSignal() = default;

} // namespace tickervantage
