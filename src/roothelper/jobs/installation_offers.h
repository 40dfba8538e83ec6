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
#include "roothelper/jobs/distribution_chrony.h"
#include "settings/suppressible_alert.h"

#include <functional>
#include <memory>
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

// Whether two files hold the same bytes.
using SameFiles = std::function<bool(const std::string& one, const std::string& other)>;

// Blocks while two chronyd tell their version. Without `same_files` programs of one version count as the same.
[[nodiscard]] InstallationFacts look_at_installation(const InstalledPaths& paths, const std::string& bundle,
                                                     ServiceForm form, const FileExists& file_exists, Execute& execute,
                                                     const SameFiles& same_files = {});

// Finds a text in the user's language, by the text and a comment for translators.
using Translate = std::function<std::string(const char* text, const char* comment)>;

// With a distribution's chrony beside it, the alert says what an installation of our own gives up.
[[nodiscard]] Alert first_run_alert(const Translate& translate,
                                    const std::optional<DistributionChrony>& distribution = std::nullopt);
[[nodiscard]] Alert version_alert(const Translate& translate, const std::string& chronyd, const std::string& installed,
                                  const std::string& embedded);
[[nodiscard]] Alert system_chrony_alert(const Translate& translate, const DistributionChrony& chrony);
[[nodiscard]] Alert unasked_choice_alert(const Translate& translate, const DistributionChrony& chrony);

struct InstallationOffersParts {
    WarningRegister& warnings;
    Execute& execute;
    DispatchQueueSerial& queue;
    MainThread& main_thread;
    std::string bundle;
    ServiceForm form = native_service_form;
    FileExists file_exists;                // on the queue
    std::function<InstalledPaths()> paths; // as the preferences have them
    // Whether they are the distribution's because nobody has set any: that is told, once. May be missing.
    std::function<bool()> uses_distribution_unasked = {};
    ShowAlert show;
    Translate translate;
    std::function<void()> install;
    std::function<void(const DistributionChrony&)> use_distribution;
    std::function<void(const std::string& program, const std::string& answer)> stop_for_version;
    SameFiles same_files = {}; // on the queue
};

class InstallationOffers {
public:
    explicit InstallationOffers(InstallationOffersParts parts);
    ~InstallationOffers();
    InstallationOffers(const InstallationOffers&) = delete;
    InstallationOffers& operator=(const InstallationOffers&) = delete;

    // Once for each load of the window. Offers come one after the other.
    void start();

private:
    void offer(const InstallationFacts& facts);
    void tell_unasked_choice(const DistributionChrony& chrony);
    void offer_installation(const InstallationFacts& facts);
    void offer_version(const InstallationFacts& facts);

    InstallationOffersParts m_parts;
    Background m_background;
};

} // namespace tickervantage
