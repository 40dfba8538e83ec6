// Ending in order when a signal asks for it (Ctrl-C, the end of a session, a reader that closed its pipe).
//
// While an object lives, such a signal ends the program that is being waited for and wakes wait(), and nothing else:
// what was started and made is then taken back on the way out of main. Afterwards end_as_asked() ends the process by
// that same signal, so that the shell sees what happened. One object at a time, made before there are threads.
#pragma once

#include "linux/file_descriptor.h"

namespace tickervantage {

class PosixExecute;

class EndSignals {
public:
    explicit EndSignals(PosixExecute& execute);
    ~EndSignals(); // the signals do what they did before
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    [[nodiscard]] bool asked() const { return asked_within(0); }

    // Readable from the first signal on, for an event loop to watch.
    [[nodiscard]] int descriptor() const { return m_woken.get(); }

    // Waits for so many seconds, or until asked.
    [[nodiscard]] bool asked_within(double seconds) const;

private:
    FileDescriptor m_woken; // readable from the first signal on
};

// The signal that asked; 0 when none did.
[[nodiscard]] int end_signal();

// After EndSignals has gone: returns when no signal had asked.
void end_as_asked();

} // namespace tickervantage
