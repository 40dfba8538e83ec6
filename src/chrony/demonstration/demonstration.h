// A demonstration without a network and without rights: three time servers and their client, all real chronyd, on
// loopback.
//
// None touches the system clock: all run with -x, as the user, in one private folder. The client reaches the state
// "synchronised" within about a second of start() and writes a tracking log line up to four times a second, behind
// those of a recorded day.
//
// A process forked by begin() looks after the daemons. It ends them and removes the folder when stop() is called,
// when the object goes, and when the program is killed or crashes; it lives in a session of its own, so that Ctrl-C in
// the terminal reaches the program only. Hence begin() has to be called early in main, before there are threads or
// windows: what the process inherits it keeps in memory until the end.
//
// Main thread only, except await_start(), wait_until_synchronised(), install() and pull_out().
// Source: chronyd(8), chrony.conf(5), chronyc(1) of chrony 4.3.
#pragma once

#include "base/execute.h"
#include "linux/file_descriptor.h"

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

namespace tickervantage {

class Demonstration {
public:
    Demonstration() = default;
    ~Demonstration() { stop(); }
    Demonstration(const Demonstration&) = delete;
    Demonstration& operator=(const Demonstration&) = delete;

    // begin() and await_start() in one; what failed has been stopped.
    [[nodiscard]] Result<> start(const std::string& chronyd, const std::string& folder);

    // Makes the folder, which must not exist yet, has the daemons started, and returns at once: the paths below are
    // known then. Where the folder's path is too long for a socket, one in /tmp takes its place. Of several chronyd
    // take the bundle's: that in /usr/sbin may be confined to its own folders (AppArmor does so by its path).
    [[nodiscard]] Result<> begin(const std::string& chronyd, const std::string& folder);

    // Once after begin(): returns when all daemons answer, after some 100 ms, at the latest after 6 s. Any thread,
    // while the object lives and stop() is not called.
    [[nodiscard]] Result<> await_start();

    // Returns when all daemons have ended and the folder has gone: some milliseconds, at the latest after about 2 s.
    void stop();

    [[nodiscard]] bool is_running() const { return m_supervisor > 0; }

    // Of the client. Paths; empty unless running.
    [[nodiscard]] std::string socket() const { return client_file("chronyd.sock"); } // for chronyc -h
    [[nodiscard]] std::string client_pidfile() const { return client_file("chronyd.pid"); }
    [[nodiscard]] std::string tracking_log() const { return client_file("tracking.log"); }
    [[nodiscard]] std::string client_config() const { return client_file("chrony.conf"); }
    [[nodiscard]] const std::string& folder() const { return m_folder; }

    // Where the recorded day ends and the live part begins, s since 1970: for recorded_day().
    [[nodiscard]] std::int64_t begun() const { return m_begun; }

    // The text becomes the client's configuration, and the client is restarted with it; when it does not come up the
    // former one comes back. Blocks for up to some seconds. Any thread but that of a window, while the object lives and
    // stop() is not called; so does pull_out().
    [[nodiscard]] Result<> install(const std::string& text);

    // Ends one of demonstration_servers, or starts it again.
    [[nodiscard]] Result<> pull_out(std::size_t server, bool out);

    // Blocks until the client is synchronised. May run on another thread while the object lives and stop() is not
    // called; never on the main thread of a window.
    [[nodiscard]] Result<> wait_until_synchronised(Execute& execute, const std::string& chronyc,
                                                   std::chrono::milliseconds time_limit) const;

private:
    [[nodiscard]] std::string client_file(const std::string& name) const;
    [[nodiscard]] Result<> ask(const std::string& order);

    std::string m_folder;
    std::int64_t m_begun = 0;
    FileDescriptor m_news; // how the start went; for await_start()
    std::mutex m_asking;   // one order at a time
    FileDescriptor m_hold; // takes orders; the supervisor cleans up when the last copy of this end is closed
    pid_t m_supervisor = -1;
};

} // namespace tickervantage
