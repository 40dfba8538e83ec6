// Runs a program and returns what it printed.
//
// Programs are started directly, without a shell, with the C locale so that their numbers and words can be read. Every
// run has a time limit and a limit on what is kept of its output; a program that passes either is ended together with
// the children it started.
#pragma once

#include "base/failure.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct ExecuteRequest {
    std::string program; // a path; the search path is not consulted
    std::vector<std::string> arguments;
    std::chrono::milliseconds time_limit{15'000};
    std::size_t output_limit = 1U << 20U; // bytes kept of the output
};

enum class ExecuteOutcome : unsigned char {
    exited,      // ended by itself; see exit_status
    signalled,   // ended by a signal that was not ours
    timed_out,   // ended by us at the time limit
    too_long,    // ended by us at the output limit; `output` holds the bytes up to it
    not_started, // missing, not executable, not a program
    cancelled,   // ended by us because the executor is going away
};

struct ExecuteResult {
    ExecuteOutcome outcome = ExecuteOutcome::not_started;
    int exit_status = -1;           // valid with `exited`
    std::string output;             // standard output and standard error as they came, raw bytes
    std::optional<Failure> failure; // none with `exited`
};

class Execute {
public:
    virtual ~Execute() = default;

    // Blocks until the program has ended. May be called from several threads at once; never from the main thread.
    [[nodiscard]] virtual ExecuteResult run(const ExecuteRequest& request) = 0;
};

} // namespace tickervantage
