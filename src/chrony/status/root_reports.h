// The reports that only root may read, as data: read beside the status, on a queue of their own, from the moment when
// somebody wants them and as long as the rights are there. Main thread only.
#pragma once

#include "base/background.h"
#include "chrony/reports/runchronyc.h"

#include <functional>
#include <memory>

namespace tickervantage {

class RootReports {
public:
    // A daemon of the user's own answers all that chronyc asks; of the machine's the helper asks. `came` is called
    // after each run that brought some. All that is borrowed lives longer.
    RootReports(PrivilegedActions& privileged, DispatchQueueSerial& queue, MainThread& main_thread, bool is_own_daemon,
                std::function<void()> came);

    void want() { m_is_wanted = true; }
    [[nodiscard]] bool can_be_read() const;

    // One run, unless they are not wanted or one is under way. Without the rights, what came before is forgotten: it
    // would go out of date.
    void read(const std::shared_ptr<const Runchronyc>& chronyc);

    [[nodiscard]] const std::shared_ptr<const ExecuteResult>& newest() const { return m_newest; } // null: none

private:
    PrivilegedActions& m_privileged;
    DispatchQueueSerial& m_queue;
    bool m_is_own_daemon;
    bool m_is_wanted; // from the beginning where nothing stands in their way
    std::function<void()> m_came;
    bool m_is_reading = false;
    std::shared_ptr<const ExecuteResult> m_newest;
    Background m_background;
};

} // namespace tickervantage
