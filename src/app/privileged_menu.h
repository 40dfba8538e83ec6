// The administrative jobs as the windows start them: handlers for the menu, what is told meanwhile and afterwards.
//
// Main thread only. A job that could not be done says why in an alert; one whose rights were refused says nothing more.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <QObject>
#include <QString>

#include <array>
#include <string>

namespace tickervantage {

class StatusCycle;

// The menu's items that start a job without asking for more.
inline constexpr std::array<const char*, 6> job_actions{"installChrony", "uninstallChrony", "startChrony",
                                                        "stopChrony",    "runChronywake",   "rotateLogs"};

class PrivilegedMenu : public QObject {
    Q_OBJECT

public:
    // Both live longer.
    PrivilegedMenu(AdministrativeJobs& jobs, StatusCycle& cycle) : m_jobs(jobs), m_cycle(cycle) {}

    void connect_items(const ApplicationMenus& menus);

    // Installs chrony and starts it, while the status cycle rests.
    void install();
    void uninstall() { run({AdminJob::uninstall}); }

    // A job of which only the end matters; what it was about may have changed then.
    void run(const AdminRequest& request);

Q_SIGNALS:
    void removal_wanted(); // by the user, who was not asked yet whether it is meant
    void complained(const QString& sentence);
    void informed(const QString& sentence);

private:
    void run_chronywake();
    void start_installed(const JobResult& installed);
    void tell(const JobResult& result);

    AdministrativeJobs& m_jobs;
    StatusCycle& m_cycle;
};

// The progress text of a job in the user's language.
[[nodiscard]] QString translated_progress(const std::string& text);

} // namespace tickervantage
