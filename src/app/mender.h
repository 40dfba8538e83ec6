// Looks after each reading whether anything is wrong that somebody here could mend, tells the main window, and does it
// when its button is pressed: with the questions that belong to the job. Main thread; the machine is looked at on the
// queue.
#pragma once

#include "base/background.h"
#include "chrony/truth/clock_truth.h"
#include "roothelper/jobs/job_catalogue.h"
#include "roothelper/jobs/mending.h"
#include "settings/preferences.h"

#include <QObject>

#include <memory>

namespace tickervantage {

class Administration;
class TickervantageWindow;

// All of it lives longer.
struct MenderParts {
    const JobMachine& machine; // on the queue
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    const PreferencesGeneral& general; // as they are now
    TickervantageWindow& window;
    Administration* administration = nullptr; // null: a demonstration, which leaves the machine alone
};

class Mender : public QObject {
    Q_OBJECT

public:
    explicit Mender(MenderParts parts);

    // Has chrony write its logs, after a question on the main window that says what they cost.
    void ask_for_logging();

Q_SIGNALS:
    void demonstration_left(); // for this system's chrony
    void complained(const QString& sentence);

private:
    void look();
    void mend(Mending what);
    void turn_on_logging(const std::string& configuration);
    void open_logs();
    void tell(const JobResult& result);

    MenderParts m_parts;
    MendingFacts m_facts;
    std::shared_ptr<const ClockTruth> m_truth; // the newest
    Background m_background;
    Background m_asking; // apart: looking again does not forget what was asked for
};

} // namespace tickervantage
