// A child of the helper: a program, or a piece of this one, under an identity, with limits, watched by the event loop.
//
// It gets a process group of its own, a fixed environment, no input and none of our descriptors; when it passes a limit
// the whole group is killed. The helper has one thread, so that a fork may do what it likes.
#pragma once

#include "base/failure.h"
#include "linux/bus_owners.h"
#include "linux/file_descriptor.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tickervantage {

struct ChildIdentity {
    uid_t user = 0;
    gid_t group = 0;
    std::string name; // for its further groups; empty: none
};

struct ChildTask {
    std::vector<std::string> argv;         // the program to run
    int (*body)(const ChildTask&) = {};    // or what the fork does itself: its result is the exit status
    std::optional<ChildIdentity> identity; // nothing: root
    bool errors_only = false;              // what it prints as its result is thrown away
    std::chrono::seconds time_limit{30};
    std::size_t output_limit = std::size_t{8} << 20U;
};

struct ChildEnd {
    int status = -1;                // exit status; -1 when it did not end by itself
    std::string output;             // both streams as they came, or the errors alone
    std::optional<Failure> failure; // of the running of it; none when it ended by itself
};

class ChildProcess {
public:
    using Done = std::function<void(ChildEnd)>;

    // `done` is called once, from the event loop, also when nothing could be started; it may destroy this object.
    ChildProcess(sd_event* event, ChildTask task, Done done);
    ~ChildProcess(); // kills what still runs
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

private:
    [[nodiscard]] int start(sd_event* event);
    [[nodiscard]] int watch(sd_event* event);
    bool read_output();
    void end_because(Failure why);
    void finish();

    ChildTask m_task;
    Done m_done;
    ChildEnd m_end;
    pid_t m_pid = -1;
    FileDescriptor m_output;
    EventSource m_output_source;
    EventSource m_child_source;
    EventSource m_time_source;
    EventSource m_failure_source;
};

} // namespace tickervantage
