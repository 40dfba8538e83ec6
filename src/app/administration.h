// Everything of the application that needs administrator rights: the jobs, their menu items and alerts, and the offers
// to install chrony. Main thread only.
#pragma once

#include "app/privileged_menu.h"
#include "base/paths.h"
#include "history/records.h"
#include "roothelper/jobs/installation_offers.h"
#include "settings/preferences.h"

#include <functional>
#include <memory>
#include <string>

namespace tickervantage {

class TickervantageWindow;

// All of it outlives the object.
struct AdministrationParts {
    JobQueues& queues;
    JobMachine& machine; // on the queues
    std::shared_ptr<PrivilegedActions> actions;
    MainThread& main_thread;
    Execute& execute;
    DefaultSettings& settings;
    WarningRegister& warnings;
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    Paths paths;
    TickervantageWindow& window; // sheets hang on it
};

class Administration : public QObject, private JobsOwner, private OffersOwner {
    Q_OBJECT

public:
    explicit Administration(AdministrationParts parts);

    [[nodiscard]] AdministrativeJobs& jobs() { return m_jobs; }

    // The menu's items that administer.
    void connect_items(const ApplicationMenus& menus);

    // Once for each load of the main window.
    void offer_installation() { m_offers.start(); }

    // Each asks first.
    void ask_to_install();
    void ask_to_use(const DistributionChrony& chrony);

    // For a report that somebody has just chosen: asks for the rights that it needs, then reads again.
    void ask_for_rights();

    // Told by the shared actions.
    void show_problem(PrivilegedProblem problem, const Failure& why);

    // For the windows: `done` comes back on the main thread, and the daemon is looked at again.
    void run(const AdminRequest& request, AdministrativeJobs::Done done);

Q_SIGNALS:
    void complained(const QString& sentence);
    void came_to_pass(const HistoryEvent& event); // a job that had the rights for what it did
    void informed(const QString& sentence);

private:
    void confirm_removal();

    [[nodiscard]] JobSetting job_setting() override;
    void show_progress(const std::string& text) override;
    void job_ended(AdminJob job, const JobResult& result) override;

    [[nodiscard]] InstalledPaths installed_paths() override;
    [[nodiscard]] bool uses_distribution_unasked() override;
    [[nodiscard]] std::string worded(const char* text, const char* comment) override;
    void show(const Alert& alert, AlertAnswered answered) override;
    void install() override { m_menu.install(); }
    void use_distribution(const DistributionChrony& chrony) override;
    void stop_for_version(const std::string& program, const std::string& answer) override;

    AdministrationParts m_parts;
    AdministrativeJobs m_jobs;
    PrivilegedMenu m_menu;
    InstallationOffers m_offers;
};

// Tells why the items of jobs are disabled where there is no administration.
void explain_missing_administration(const ApplicationMenus& menus);

} // namespace tickervantage
