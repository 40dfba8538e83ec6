// The administrative jobs as the windows start them: handlers for the menu, what is told meanwhile and afterwards.
//
// Main thread only. A job that could not be done says why in an alert; one whose rights were refused says nothing more.
#pragma once

#include "app/application_menus.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <QString>

#include <array>
#include <functional>
#include <string>

namespace tickervantage {

class StatusCycle;

// The menu's items that start a job without asking for more.
inline constexpr std::array<const char*, 6> job_actions{"installChrony", "uninstallChrony", "startChrony",
                                                        "stopChrony",    "runChronywake",   "rotateLogs"};

struct PrivilegedMenuParts {
    AdministrativeJobs& jobs; // lives longer
    std::function<StatusCycle&()> cycle;
    std::function<void(const QString& text)> show_progress; // empty text: no longer
    std::function<void(const QString& sentence)> say;
    std::function<void(std::function<void()> remove)> confirm_removal; // calls back when the user agrees
};

class PrivilegedMenu {
public:
    explicit PrivilegedMenu(PrivilegedMenuParts parts);

    void connect_items(const ApplicationMenus& menus);

    // Installs chrony and starts it, while the status cycle rests.
    void install();

    // A job of which only the end matters; `done` hears the sentence that says what went wrong, or an empty one.
    void run(const AdminRequest& request, std::function<void(const JobResult& result)> done);

private:
    void run_and_tell(const AdminRequest& request);
    void uninstall();
    void start_installed(const JobResult& installed);
    void tell(const JobResult& result);

    PrivilegedMenuParts m_parts;
};

// The progress text of a job in the user's language.
[[nodiscard]] QString translated_progress(const std::string& text);

} // namespace tickervantage
