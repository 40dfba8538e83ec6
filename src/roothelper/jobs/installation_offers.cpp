#include "roothelper/jobs/installation_offers.h"

#include "chrony/services/chrony_services.h"
#include "settings/warning_register.h"

#include <utility>

namespace tickervantage {
namespace {

constexpr const char* embedded_suffix = "/Contents/MacOS/chronyd";

bool is_complete(const InstalledPaths& paths, ServiceForm form, const FileExists& file_exists) {
    const auto definition = definition_path(form, daemon_label);
    const bool has_service = file_exists(definition) ||
                             (form == ServiceForm::systemd && !distribution_unit(paths.chronyd, file_exists).empty());
    return file_exists(paths.chronyd) && has_service && file_exists(paths.chronyc) && file_exists(paths.config);
}

ProgramVersion version_of(const std::string& program, Execute& execute) {
    return read_version(execute.run({.program = program, .arguments = {"-n", "-v"}}));
}

// What cannot be read is not known to differ.
bool have_same_bytes(const JobMachine& machine, const std::string& one, const std::string& other) {
    const auto first = machine.read_file(one);
    const auto second = machine.read_file(other);
    return !first || !second || *first == *second;
}

} // namespace

InstallationFacts look_at_installation(const InstalledPaths& paths, const std::string& bundle, ServiceForm form,
                                       const JobMachine& machine, Execute& execute) {
    const FileExists file_exists = machine.looks_for_files();
    InstallationFacts facts;
    facts.complete = is_complete(paths, form, file_exists);
    facts.has_daemon = file_exists(paths.chronyd);
    facts.has_programs = facts.has_daemon || file_exists(paths.chronyc);
    facts.distribution = find_distribution_chrony(file_exists);
    facts.is_distributions = !distribution_unit(paths.chronyd, file_exists).empty();
    if (facts.has_daemon && !facts.is_distributions) {
        const auto embedded = bundle + "/" + embedded_suffix;
        facts.installed = version_of(paths.chronyd, execute);
        facts.embedded = version_of(embedded, execute);
        facts.same_programs = have_same_bytes(machine, paths.chronyd, embedded);
    }
    return facts;
}

namespace {

std::string listed(const DistributionChrony& chrony) {
    return "\n\n" + chrony.chronyd + "\n" + chrony.chronyc + "\n" + chrony.config + "\n" + chrony.unit + "\n\n";
}

} // namespace

Alert first_run_alert(OffersOwner& owner, const std::optional<DistributionChrony>& distribution) {
    auto text = owner.worded("The chronyd ntp daemon is not configured/installed.", "first run: line 1") +
                owner.worded("\nDo you wish to install the privileged components?", "first run: line 2");
    if (distribution)
        text += "\n\n" +
                owner.worded("They take the place of the chrony that this system has, and give up what its packages "
                             "provide: updates by the system, and the confinement by AppArmor.",
                             "first run: where the system has a chrony of its own");
    return {.identifier = "FirstRunAlert",
            .message = owner.worded("Warning", ""),
            .informative = text,
            .buttons = {owner.worded("Install", ""), owner.worded("Cancel", "")}};
}

Alert version_alert(OffersOwner& owner, const std::string& chronyd, const std::string& installed,
                    const std::string& embedded) {
    const auto line1 = owner.worded("Installed: ", "compare versions line 1") + chronyd + " " + installed;
    const auto line2 = owner.worded(" Embedded: ", "compare versions line 2") + embedded_suffix + " " + embedded;
    const auto line3 = owner.worded("Do you wish to re-install chronyd", "compare versions line 3");
    return {.identifier = "VersionCompareAlert",
            .message = owner.worded("Warning: Version mismatch", ""),
            .informative = line1 + "\n\n" + line2 + "\n\n" + line3,
            .buttons = {owner.worded("Install", ""), owner.worded("Cancel", "")}};
}

Alert system_chrony_alert(OffersOwner& owner, const DistributionChrony& chrony) {
    return {.identifier = system_chrony_identifier,
            .message = owner.worded("Use the chrony of this system?", "system chrony: title"),
            .informative = owner.worded("This system has a chrony of its own, which its packages keep up to date:",
                                        "system chrony: line 1") +
                           listed(chrony) +
                           owner.worded("The program can show and steer that one instead of installing another.",
                                        "system chrony: last line"),
            .buttons = {owner.worded("Use It", "system chrony: button"), owner.worded("Cancel", "")},
            .kind = AlertKind::question};
}

Alert unasked_choice_alert(OffersOwner& owner, const DistributionChrony& chrony) {
    return {.identifier = system_chrony_identifier,
            .message = owner.worded("The chrony of this system is used.", "system chrony in use: title"),
            .informative = owner.worded("This system has a chrony of its own, which its packages keep up to date:",
                                        "system chrony: line 1") +
                           listed(chrony) +
                           owner.worded("Preferences has other paths.", "system chrony in use: last line"),
            .buttons = {owner.worded("Dismiss", "system chrony in use: button")},
            .kind = AlertKind::information};
}

InstallationOffers::InstallationOffers(InstallationOffersParts parts)
    : m_parts(std::move(parts)), m_background(m_parts.main_thread) {}

void InstallationOffers::start() {
    m_background.start(
        m_parts.queue,
        [paths = m_parts.owner.installed_paths(), bundle = m_parts.bundle, form = m_parts.form,
         &machine = m_parts.machine,
         &execute = m_parts.execute] { return look_at_installation(paths, bundle, form, machine, execute); },
        [this](const InstallationFacts& facts) { offer(facts); });
}

bool InstallationOffers::show(const Alert& alert, ButtonPressed answered) {
    return show_unless_suppressed(m_parts.warnings, m_parts.owner, alert, m_background.if_alive(std::move(answered)));
}

void InstallationOffers::tell_unasked_choice(const DistributionChrony& chrony) {
    if (show(unasked_choice_alert(m_parts.owner, chrony), [](std::size_t) {}))
        m_parts.warnings.register_warning(system_chrony_identifier);
}

void InstallationOffers::offer(const InstallationFacts& facts) {
    if (facts.distribution && m_parts.owner.uses_distribution_unasked()) {
        tell_unasked_choice(*facts.distribution);
        return;
    }
    if (facts.complete || facts.has_programs || !facts.distribution) {
        offer_installation(facts);
        return;
    }
    const auto answered = [this, facts](std::size_t button) {
        m_parts.warnings.register_warning(system_chrony_identifier); // asked once, whatever the answer
        if (button == 0)
            m_parts.owner.use_distribution(*facts.distribution);
        else
            offer_installation(facts);
    };
    if (!show(system_chrony_alert(m_parts.owner, *facts.distribution), answered))
        offer_installation(facts);
}

void InstallationOffers::offer_installation(const InstallationFacts& facts) {
    const auto answered = [this, facts](std::size_t button) {
        if (button == 0)
            m_parts.owner.install();
        else
            offer_version(facts);
    };
    if (facts.complete || !show(first_run_alert(m_parts.owner, facts.distribution), answered))
        offer_version(facts);
}

void InstallationOffers::offer_version(const InstallationFacts& facts) {
    if (m_parts.warnings.contains("VersionCompareAlert") || !facts.has_daemon || facts.installed.label.empty() ||
        facts.embedded.failure)
        return;
    if (facts.embedded.meaningless) {
        m_parts.owner.stop_for_version("chronyd", facts.embedded.label);
        return;
    }
    if (facts.installed.label == facts.embedded.label && facts.same_programs)
        return;
    (void)show(version_alert(m_parts.owner, m_parts.owner.installed_paths().chronyd, facts.installed.label,
                             facts.embedded.label),
               [this](std::size_t button) {
                   if (button == 0)
                       m_parts.owner.install();
               });
}

} // namespace tickervantage
