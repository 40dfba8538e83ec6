// Everything of the application that needs administrator rights: the jobs, their menu items and alerts, and the offers
// to install chrony. Main thread only.
#pragma once

#include "app/privileged_menu.h"
#include "base/paths.h"
#include "roothelper/jobs/installation_offers.h"
#include "settings/preferences.h"

#include <functional>
#include <memory>

class QWidget;

namespace tickervantage {

// How the jobs reach the machine. Missing in a demonstration, which leaves the machine alone.
struct AdministrationMachine {
    std::function<DispatchQueueSerial&(std::string_view label)> queue;
    JobProbes probes;
    SentStepsParts steps;
};

// All of it outlives the object.
struct AdministrationParts {
    AdministrationMachine machine;
    std::shared_ptr<PrivilegedActions> actions;
    MainThread& main_thread;
    Execute& execute;
    DefaultSettings& settings;
    WarningRegister& warnings;
    PreferencesGeneral& general;
    PreferencesAdvanced& advanced;
    Paths paths;
    std::function<StatusCycle&()> cycle;
    std::function<QWidget*()> window; // sheets hang on it
    std::function<void(const QString& text)> show_progress;
    std::function<void(const QString& sentence)> say;
    std::function<void(const std::string& program, const std::string& answer)> stop_for_version;
};

class Administration {
public:
    explicit Administration(AdministrationParts parts);
    ~Administration();
    Administration(const Administration&) = delete;
    Administration& operator=(const Administration&) = delete;

    [[nodiscard]] AdministrativeJobs& jobs() { return m_jobs; }
    [[nodiscard]] PrivilegedMenu& menu() { return m_menu; }

    // The menu's items that administer.
    void connect_items(const ApplicationMenus& menus);

    // Once for each load of the main window.
    void offer_installation() { m_offers.start(); }

    // For a report that somebody has just chosen: asks for the rights that it needs, then reads again.
    void ask_for_rights();

    // Told by the shared actions.
    void show_problem(PrivilegedProblem problem, const Failure& why);

    // For the tracking windows and the configuration editor; each comes back on the main thread.
    using Heard = std::function<void(bool done, const std::string& sentence)>;
    void make_log_readable(Heard done);
    void install_configuration(std::string text, std::function<void(const JobResult& result)> done);

private:
    [[nodiscard]] ShowAlert show();
    void confirm_removal(std::function<void()> remove) const;
    void use_distribution(const DistributionChrony& chrony);

    AdministrationParts m_parts;
    AdministrativeJobs m_jobs;
    PrivilegedMenu m_menu;
    InstallationOffers m_offers;
};

// Tells why the items of jobs are disabled where there is no administration.
void explain_missing_administration(const ApplicationMenus& menus);

} // namespace tickervantage
