#include "chrony/status/root_reports.h"

#include "chrony/data/live_capture.h"
#include "roothelper/client/privileged_actions.h"

#include <utility>

namespace tickervantage {

RootReports::RootReports(PrivilegedActions& privileged, DispatchQueueSerial& queue, MainThread& main_thread,
                         bool is_own_daemon, std::function<void()> came)
    : m_privileged(privileged), m_queue(queue), m_is_own_daemon(is_own_daemon), m_is_wanted(is_own_daemon),
      m_came(std::move(came)), m_background(main_thread) {}

bool RootReports::can_be_read() const {
    return m_is_own_daemon || m_privileged.helper_ready();
}

void RootReports::read(const std::shared_ptr<const Runchronyc>& chronyc) {
    if (!m_is_wanted || m_is_reading)
        return;
    if (!can_be_read()) {
        m_newest.reset();
        return;
    }
    m_is_reading = true;
    m_background.start(
        m_queue, [chronyc] { return run_root_reports(*chronyc); },
        [this](const ExecuteResult& run) {
            m_is_reading = false;
            m_newest = run.outcome == ExecuteOutcome::exited ? std::make_shared<const ExecuteResult>(run) : nullptr;
            if (m_newest)
                m_came();
        });
}

} // namespace tickervantage
