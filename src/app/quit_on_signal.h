// Ends a Qt program properly when it is asked to end by a signal, as at the end of a session or by Ctrl-C.
#pragma once

#include "linux/file_descriptor.h"

#include <memory>

class QSocketNotifier;

namespace tickervantage {

// Blocks the signals for the calling thread and all that it starts later, so call it before any thread exists.
void block_quit_signals();

class QuitOnSignal {
public:
    QuitOnSignal(); // needs the application object; block_quit_signals comes first
    ~QuitOnSignal();
    QuitOnSignal(const QuitOnSignal&) = delete;
    QuitOnSignal& operator=(const QuitOnSignal&) = delete;

private:
    FileDescriptor m_signals;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace tickervantage
