// The program's one hand on the root side: the channel to the helper, and whether an administrative job is under way.
//
// One instance for the whole run, shared, so that background jobs can hold it weakly. Every function may be called from
// any thread; execute and run_shell_line block until the helper answers.
#pragma once

#include "platform/privileged_channel.h"

#include <mutex>
#include <string>

namespace tickervantage {

class PrivilegedActions {
public:
    explicit PrivilegedActions(PrivilegedChannel& channel) : m_channel(channel) {}

    void prepare() { m_channel.prepare(); }
    [[nodiscard]] bool helper_ready() const { return m_channel.ready(); }

    // Runs one command line as root and returns what it printed; empty text when the helper is not ready.
    std::string execute(const std::string& command) { return m_channel.execute(command); }

    // Says farewell to the helper and gives the authorisation back.
    void quit() { m_channel.disconnect(); }

    [[nodiscard]] bool action_in_progress() const;
    void set_action_in_progress(bool in_progress);

private:
    PrivilegedChannel& m_channel;
    mutable std::mutex m_mutex; // guards m_installer_busy: jobs end on their queues, menus ask on the main thread
    bool m_installer_busy = false;
};

} // namespace tickervantage
