#include "app/administration.h"

#include "app/alert_sheet.h"
#include "app/former_configurations.h"
#include "chrony/status/status_cycle.h"
#include "qt/in_words.h"
#include "roothelper/jobs/distribution_chrony.h"
#include "roothelper/jobs/job_environment.h"
#include "settings/warning_register.h"

#include <QAction>
#include <QCoreApplication>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(administration)
};

/* TRANSLATOR offers
   alerts that offer at the start to install chrony, or to use the chrony that the system has. */
// For translators: the offers, whose texts are put together elsewhere.
struct MarkedText {
    const char* text;
    const char* comment;
};
[[maybe_unused]] constexpr std::array<MarkedText, 17> offer_texts{
    {QT_TRANSLATE_NOOP3("offers", "Warning", ""),
     QT_TRANSLATE_NOOP3("offers", "The chronyd ntp daemon is not configured/installed.", "first run: line 1"),
     QT_TRANSLATE_NOOP3("offers", "\nDo you wish to install the privileged components?", "first run: line 2"),
     QT_TRANSLATE_NOOP3("offers",
                        "They take the place of the chrony that this system has, and give up what its packages "
                        "provide: updates by the system, and the confinement by AppArmor.",
                        "first run: where the system has a chrony of its own"),
     QT_TRANSLATE_NOOP3("offers", "Warning: Version mismatch", ""),
     QT_TRANSLATE_NOOP3("offers", "Installed: ", "compare versions line 1"),
     QT_TRANSLATE_NOOP3("offers", " Embedded: ", "compare versions line 2"),
     QT_TRANSLATE_NOOP3("offers", "Do you wish to re-install chronyd", "compare versions line 3"),
     QT_TRANSLATE_NOOP3("offers", "Install", ""), QT_TRANSLATE_NOOP3("offers", "Cancel", ""),
     QT_TRANSLATE_NOOP3("offers", "Use the chrony of this system?", "system chrony: title"),
     QT_TRANSLATE_NOOP3(
         "offers", "This system has a chrony of its own, which its packages keep up to date:", "system chrony: line 1"),
     QT_TRANSLATE_NOOP3("offers", "The program can show and steer that one instead of installing another.",
                        "system chrony: last line"),
     QT_TRANSLATE_NOOP3("offers", "Use It", "system chrony: button"),
     QT_TRANSLATE_NOOP3("offers", "The chrony of this system is used.", "system chrony in use: title"),
     QT_TRANSLATE_NOOP3("offers", "Preferences has other paths.", "system chrony in use: last line"),
     QT_TRANSLATE_NOOP3("offers", "Dismiss", "system chrony in use: button")}};

std::string translate_offer(const char* text, const char* comment) {
    return QCoreApplication::translate("offers", text, comment).toStdString();
}

Alert removal_question(const JobSetting& setting) {
    const std::string removed = setting.chronyd + '\n' + setting.chronyc + '\n' + setting.chronywake;
    const QString text =
        //: question before chrony is removed: %1 are paths, one a line; %2 is the path of the configuration
        Texts::tr("Removed are these programs, with the services that run them and rotate their logs:\n%1\n\n"
                  "The configuration %2 and the logs stay.\n\n"
                  "Nothing keeps the clock right afterwards, until chrony is installed again or another time service "
                  "takes over.")
            .arg(QString::fromStdString(removed), QString::fromStdString(setting.config));
    return {.identifier = "RemoveChrony",
            //: question before chrony is removed
            .message = Texts::tr("Remove chrony from this computer?").toStdString(),
            .informative = text.toStdString(),
            //: buttons of that question
            .buttons = {Texts::tr("Remove").toStdString(), Texts::tr("Cancel").toStdString()}};
}

// What cannot be read is not known to differ.
SameFiles same_bytes(const JobProbes& probes) {
    return [read = probes.read_file](const std::string& one, const std::string& other) {
        const auto first = read(one);
        const auto second = read(other);
        return !first || !second || *first == *second;
    };
}

AdministrativeJobsParts jobs_parts(const AdministrationParts& parts) {
    return {.actions = parts.actions,
            .main_thread = parts.main_thread,
            .queue = parts.machine.queue,
            .setting = [&general = parts.general, &advanced = parts.advanced,
                        paths = parts.paths] { return make_job_setting(general, advanced, paths); },
            .probes = parts.machine.probes,
            .steps = parts.machine.steps};
}

} // namespace

Administration::Administration(AdministrationParts parts)
    : m_parts(std::move(parts)), m_jobs(jobs_parts(m_parts)), m_menu({.jobs = m_jobs,
                                                                      .cycle = m_parts.cycle,
                                                                      .show_progress = m_parts.show_progress,
                                                                      .say = m_parts.say,
                                                                      .confirm_removal =
                                                                          [this](auto remove) {
                                                                              confirm_removal(std::move(remove));
                                                                          }}),
      m_offers(
          {.warnings = m_parts.warnings,
           .execute = m_parts.execute,
           .queue = m_parts.machine.queue("net.brisklane.offers"),
           .main_thread = m_parts.main_thread,
           .bundle = m_parts.paths.bundle,
           .file_exists = m_parts.machine.probes.file_exists,
           .paths =
               [&general = m_parts.general] {
                   return InstalledPaths{general.config, general.chronyc, general.chronyd};
               },
           .uses_distribution_unasked = [&general = m_parts.general] { return general.uses_distribution_unasked(); },
           .show = show(),
           .translate = translate_offer,
           .install = [this] { m_menu.install(); },
           .use_distribution = [this](const DistributionChrony& chrony) { use_distribution(chrony); },
           .stop_for_version = m_parts.stop_for_version,
           .same_files = same_bytes(m_parts.machine.probes)}) {}

Administration::~Administration() = default;

void Administration::connect_items(const ApplicationMenus& menus) {
    m_menu.connect_items(menus);
    connect_former_configurations_item({.jobs = m_jobs,
                                        .queue = m_parts.machine.queue("net.brisklane.history"),
                                        .main_thread = m_parts.main_thread,
                                        .probes = m_parts.machine.probes,
                                        .configuration = [this] { return m_parts.general.config; },
                                        .window = m_parts.window,
                                        .changed =
                                            [this] {
                                                m_parts.cycle().refresh();
                                            }},
                                       menus);
}

ShowAlert Administration::show() {
    return [this](const Alert& alert, std::function<void(AlertAnswer)> answered) {
        show_alert(m_parts.window(), alert, std::move(answered));
    };
}

// The distribution's chrony is not ours to remove: the job says so, there is nothing to ask.
void Administration::confirm_removal(std::function<void()> remove) const {
    const JobSetting setting = make_job_setting(m_parts.general, m_parts.advanced, m_parts.paths);
    if (!distribution_unit(setting.chronyd, m_parts.machine.probes.file_exists).empty())
        return remove();
    show_question(m_parts.window(), removal_question(setting), [remove = std::move(remove)](std::size_t button) {
        if (button == 0)
            remove();
    });
}

void Administration::use_distribution(const DistributionChrony& chrony) {
    m_parts.general.config = chrony.config;
    m_parts.general.chronyc = chrony.chronyc;
    m_parts.general.chronyd = chrony.chronyd;
    m_parts.general.save(m_parts.settings);
    m_parts.cycle().programs_changed();
}

void Administration::ask_for_rights() {
    m_jobs.obtain_rights([this](bool granted) {
        if (granted)
            m_parts.cycle().refresh();
    });
}

void Administration::show_problem(PrivilegedProblem problem, const Failure& why) {
    if (problem == PrivilegedProblem::not_installed) {
        //: alert: %1 is a sentence with the reason
        m_parts.say(Texts::tr("Helper install failed") + QStringLiteral("\n\n") + in_words(why));
        return;
    }
    const Alert alert{.identifier = "PasswordRequired",
                      //: alert: message
                      .message = Texts::tr("Authorization cancelled by user").toStdString(),
                      //: alert: informative text
                      .informative = Texts::tr("An admin login/password is required").toStdString(),
                      //: button of an alert
                      .buttons = {Texts::tr("Dismiss").toStdString()}};
    (void)show_unless_suppressed(m_parts.warnings, show(), alert, [](std::size_t) {});
}

void Administration::make_log_readable(Heard done) {
    m_jobs.run({AdminJob::log_permission},
               [done = std::move(done)](const JobResult& result) { done(result.done, result.sentence); });
}

void Administration::install_configuration(std::string text, std::function<void(const JobResult& result)> done) {
    m_jobs.run({.job = AdminJob::install_config, .configuration = std::move(text)},
               [this, done = std::move(done)](const JobResult& result) {
                   done(result);
                   m_parts.cycle().refresh();
               });
}

void explain_missing_administration(const ApplicationMenus& menus) {
    //: tooltip of a menu item that cannot be used in demonstration mode
    const QString words = Texts::tr("Not in a demonstration: it leaves your system as it is");
    for (const char* name : job_actions)
        menus.actions.at(name)->setToolTip(words);
    for (const char* name : {"synchServer", "stepTime", "formerConfigurations"})
        menus.actions.at(name)->setToolTip(words);
}

} // namespace tickervantage
