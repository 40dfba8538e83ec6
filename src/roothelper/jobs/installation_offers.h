// What the main window offers about chrony's installation, once after it was loaded.
//
// First, where something of the installation is missing: to use the distribution's chrony where there is one, else to
// install our own, saying what that gives up where there is one of the distribution's. Then, where our own installed
// chronyd is another one than that which the program carries: to install that. Main thread; the machine is looked at on
// the queue.
#pragma once

#include "base/background.h"
#include "chrony/reports/runchronyc.h"
#include "chrony/reports/versions.h"
#include "chrony/services/service_definitions.h"
#include "roothelper/jobs/job_machine.h"
#include "settings/warning_register.h"

#include <functional>
#include <optional>
#include <string>

namespace tickervantage {

struct InstalledPaths {
    std::string config;
    std::string chronyc;
    std::string chronyd;
};

// What was seen of the installation.
struct InstallationFacts {
    bool complete = false; // all of its files are there
    bool has_daemon = false;
    bool has_programs = false;
    bool is_distributions = false; // the daemon of the paths: its packages keep it up to date
    std::optional<DistributionChrony> distribution;
    ProgramVersion installed; // of chronyd; empty label: not asked, as of the distribution's
    ProgramVersion embedded;
    bool same_programs = true; // byte for byte: a security update need not change the version
};

// In the register of warnings: the distribution's chrony was offered, or its use was told.
inline constexpr const char* system_chrony_identifier = "SystemChronyAlert";

// Blocks while two chronyd tell their version.
[[nodiscard]] InstallationFacts look_at_installation(const InstalledPaths& paths, const std::string& bundle,
                                                     ServiceForm form, const JobMachine& machine, Execute& execute);

// To whom the offers are made.
class OffersOwner : public AlertPresenter {
public:
    [[nodiscard]] virtual InstalledPaths installed_paths() = 0; // as the preferences have them
    // Whether they are the distribution's because nobody has set any: that is told, once.
    [[nodiscard]] virtual bool uses_distribution_unasked() = 0;
    // Finds a text in the user's language, by the text and a comment for translators.
    [[nodiscard]] virtual std::string worded(const char* text, const char* comment) = 0;
    virtual void install() = 0;
    virtual void use_distribution(const DistributionChrony& chrony) = 0;
    // A chronyd does not tell its version; what it answered.
    virtual void stop_for_version(const std::string& program, const std::string& answer) = 0;
};

// With a distribution's chrony beside it, the alert says what an installation of our own gives up.
[[nodiscard]] Alert first_run_alert(OffersOwner& owner,
                                    const std::optional<DistributionChrony>& distribution = std::nullopt);
[[nodiscard]] Alert version_alert(OffersOwner& owner, const std::string& chronyd, const std::string& installed,
                                  const std::string& embedded);
[[nodiscard]] Alert system_chrony_alert(OffersOwner& owner, const DistributionChrony& chrony);
[[nodiscard]] Alert unasked_choice_alert(OffersOwner& owner, const DistributionChrony& chrony);

// All of it outlives the offers and the queue.
struct InstallationOffersParts {
    WarningRegister& warnings;
    Execute& execute; // on the queue, as the machine
    const JobMachine& machine;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    std::string bundle;
    OffersOwner& owner;
    ServiceForm form = native_service_form;
};

class InstallationOffers {
public:
    explicit InstallationOffers(InstallationOffersParts parts);

    // Once for each load of the window. Offers come one after the other.
    void start();

private:
    void offer(const InstallationFacts& facts);
    void tell_unasked_choice(const DistributionChrony& chrony);
    void offer_installation(const InstallationFacts& facts);
    void offer_version(const InstallationFacts& facts);

    [[nodiscard]] bool show(const Alert& alert, ButtonPressed answered);

    InstallationOffersParts m_parts;
    Background m_background;
};

} // namespace tickervantage
