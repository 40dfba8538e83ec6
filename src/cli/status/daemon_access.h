// How tickerctl reaches a daemon: the machine's own, one at an address, or a demonstration pair of its own.
#pragma once

#include "base/paths.h"
#include "chrony/demonstration/demonstration.h"
#include "chrony/reports/runchronyc.h"
#include "linux/posix_execute.h"
#include "roothelper/client/bus_privileged_channel.h"
#include "roothelper/client/privileged_actions.h"

#include <string>
#include <vector>

namespace tickervantage {

class DefaultSettings;

class DaemonAccess {
public:
    DaemonAccess();

    std::string host; // of chronyc's option -h; empty: chronyc's own choice

    // Starts a demonstration pair and makes it the daemon. Early in main, before there are threads.
    [[nodiscard]] Result<> start_demonstration(const Paths& paths);
    // Waits until the pair is synchronised.
    [[nodiscard]] Result<> wait_for_demonstration(const Paths& paths);

    // That of the demonstration; empty: the machine's own, or not known.
    [[nodiscard]] std::string configuration() const {
        return m_demonstration.is_running() ? m_demonstration.client_config() : "";
    }

    [[nodiscard]] Runchronyc runner(const DefaultSettings& settings, const ChronyPrograms& programs) {
        return runner(settings, programs, m_execute);
    }
    // With another way to run it, which outlives the runner.
    [[nodiscard]] Runchronyc runner(const DefaultSettings& settings, const ChronyPrograms& programs, Execute& execute);
    [[nodiscard]] const Demonstration& demonstration() const { return m_demonstration; }
    [[nodiscard]] PosixExecute& execute() { return m_execute; }
    [[nodiscard]] PrivilegedActions& actions() { return m_actions; }

private:
    PosixExecute m_execute;
    BusPrivilegedChannel m_channel;
    PrivilegedActions m_actions;
    Demonstration m_demonstration;
};

} // namespace tickervantage
