// Lets polkit ask for a password on the terminal that a program runs in, where no desktop does it.
//
// While an object of this class lives, pkttyagent answers for this process; a desktop's own dialog still comes first.
// Without a terminal, or without pkttyagent, nothing happens and polkit refuses by itself. Source: pkttyagent(1).
#pragma once

#include <sys/types.h>

namespace tickervantage {

class TerminalAgent {
public:
    TerminalAgent(); // waits until the agent has made itself known, two seconds at most
    ~TerminalAgent();
    TerminalAgent(const TerminalAgent&) = delete;
    TerminalAgent& operator=(const TerminalAgent&) = delete;

private:
    pid_t m_agent = -1;
};

} // namespace tickervantage
