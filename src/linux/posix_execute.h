// Execute over posix_spawn, a pipe and a process descriptor.
//
// A program runs in a process group of its own, with standard input closed to it, so that ending it ends its children.
// Source: posix_spawn(3), pidfd_open(2).
#pragma once

#include "base/execute.h"
#include "linux/file_descriptor.h"

namespace tickervantage {

class PosixExecute : public Execute {
public:
    PosixExecute();

    [[nodiscard]] ExecuteResult run(const ExecuteRequest& request) override;

    // Ends every run, those under way and those to come, with `cancelled`. From any thread or signal handler; for the
    // program's end.
    void cancel();

private:
    std::vector<std::string> m_environment; // the caller's, with the C locale
    FileDescriptor m_cancelled;             // readable once cancelled
};

} // namespace tickervantage
