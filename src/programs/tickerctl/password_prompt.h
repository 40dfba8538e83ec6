// Lets the system ask for an administrator's password in the terminal, where no desktop does it.
#pragma once

#include <sys/types.h>

namespace tickervantage {

class PasswordPrompt {
public:
    // Does nothing without a terminal. Waits until the prompt is registered, a few seconds at most.
    PasswordPrompt();
    ~PasswordPrompt(); // ends it
    PasswordPrompt(const PasswordPrompt&) = delete;
    PasswordPrompt& operator=(const PasswordPrompt&) = delete;

private:
    pid_t m_agent = -1;
};

} // namespace tickervantage
