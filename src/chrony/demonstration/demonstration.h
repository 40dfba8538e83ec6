// A demonstration without a network and without rights: a time server and its client, both real chronyd, on loopback.
//
// Neither touches the system clock: both run with -x, as the user, in one private folder. The client reaches the state
// "synchronised" within about a second of start() and writes a tracking log line up to four times a second.
//
// A process forked by start() looks after the two daemons. It ends them and removes the folder when stop() is called,
// when the object goes, and when the program is killed or crashes; it lives in a session of its own, so that Ctrl-C in
// the terminal reaches the program only. Hence start() has to be called early in main, before there are threads or
// windows: what the process inherits it keeps in memory until the end.
//
// Main thread only, except wait_until_synchronised().
// Source: chronyd(8), chrony.conf(5), chronyc(1) of chrony 4.3.
#pragma once

#include "base/execute.h"
#include "linux/file_descriptor.h"

#include <sys/types.h>

#include <chrono>
#include <string>

namespace tickervantage {

class Demonstration {
public:
    Demonstration() = default;
    ~Demonstration() { stop(); }
    Demonstration(const Demonstration&) = delete;
    Demonstration& operator=(const Demonstration&) = delete;

    // Makes the folder, which must not exist yet, and returns when both daemons answer: after some 10 ms, at the latest
    // after 6 s. Where the folder's path is too long for a socket, one in /tmp takes its place. Of several chronyd take
    // the bundle's: that in /usr/sbin may be confined to its own folders (AppArmor does so by its path).
    [[nodiscard]] Result<> start(const std::string& chronyd, const std::string& folder);

    // Returns when both daemons have ended and the folder has gone: some milliseconds, at the latest after about 2 s.
    void stop();

    [[nodiscard]] bool is_running() const { return m_supervisor > 0; }

    // Of the client. Paths; empty unless running.
    [[nodiscard]] std::string socket() const { return client_file("chronyd.sock"); } // for chronyc -h
    [[nodiscard]] std::string client_pidfile() const { return client_file("chronyd.pid"); }
    [[nodiscard]] std::string tracking_log() const { return client_file("tracking.log"); }
    [[nodiscard]] std::string client_config() const { return client_file("chrony.conf"); }
    [[nodiscard]] const std::string& folder() const { return m_folder; }

    // Blocks until the client is synchronised. May run on another thread while the object lives and stop() is not
    // called; never on the main thread of a window.
    [[nodiscard]] Result<> wait_until_synchronised(Execute& execute, const std::string& chronyc,
                                                   std::chrono::milliseconds time_limit) const;

private:
    [[nodiscard]] std::string client_file(const std::string& name) const;

    std::string m_folder;
    FileDescriptor m_hold; // the supervisor acts when the last copy of this end is closed
    pid_t m_supervisor = -1;
};

} // namespace tickervantage
