// The process that looks after the two daemons of a demonstration. For Demonstration only.
#pragma once

#include <chrono>
#include <string>

namespace tickervantage {

inline constexpr std::chrono::seconds demonstration_start_limit{5}; // for both daemons together

struct DemonstrationTask {
    std::string chronyd;
    std::string user;   // the name of the user who runs all this
    std::string folder; // has the folders "server" and "client"; removed at the end
    int hold;           // a pipe; its end means: clean up
    int news;           // a pipe; takes "ok" or what the daemons said, once
};

// To be called in a freshly forked child of a process with one thread. Ends the process.
[[noreturn]] void supervise_demonstration(const DemonstrationTask& task);

} // namespace tickervantage
