#include "app/administration.h"

#include "app/alert_sheet.h"
#include "app/clock_setting.h"
#include "app/former_configurations.h"
#include "gui/main/tickervantage_window.h"
#include "history/history_recorder.h"
#include "qt/in_words.h"
#include "roothelper/jobs/chrony_jobs.h"
#include "roothelper/jobs/distribution_chrony.h"
#include "settings/warning_register.h"

#include <QAction>
#include <QCoreApplication>

#include <ctime>
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

} // namespace

Administration::Administration(AdministrationParts parts)
    : m_parts(std::move(parts)), m_jobs({.actions = m_parts.actions,
                                         .main_thread = m_parts.main_thread,
                                         .queues = m_parts.queues,
                                         .machine = m_parts.machine,
                                         .owner = *this}),
      m_menu(m_jobs, m_parts.window.cycle()), m_offers({.warnings = m_parts.warnings,
                                                        .execute = m_parts.execute,
                                                        .machine = m_parts.machine,
                                                        .queue = m_parts.queues.queue("net.brisklane.offers"),
                                                        .main_thread = m_parts.main_thread,
                                                        .bundle = m_parts.paths.bundle,
                                                        .owner = *this}) {
    connect(&m_menu, &PrivilegedMenu::complained, this, &Administration::complained);
    connect(&m_menu, &PrivilegedMenu::informed, this, &Administration::informed);
    connect(&m_menu, &PrivilegedMenu::removal_wanted, this, &Administration::confirm_removal);
}

void Administration::connect_items(const ApplicationMenus& menus) {
    m_menu.connect_items(menus);
    connect_former_configurations_item({.jobs = m_jobs,
                                        .queue = m_parts.queues.queue("net.brisklane.history"),
                                        .main_thread = m_parts.main_thread,
                                        .machine = m_parts.machine,
                                        .general = m_parts.general,
                                        .window = m_parts.window},
                                       menus);
    connect_clock_setting_items(
        {.jobs = m_jobs, .menu = m_menu, .settings = m_parts.settings, .window = m_parts.window}, menus);
}

JobSetting Administration::job_setting() {
    return make_job_setting(m_parts.general, m_parts.advanced, m_parts.paths);
}

void Administration::show_progress(const std::string& text) {
    m_parts.window.set_progress(translated_progress(text));
}

void Administration::job_ended(AdminJob job, const JobResult& result) {
    if (result.outcome || is_untold_failure(result.outcome)) // else nobody gave the rights, and nothing happened
        Q_EMIT came_to_pass(job_event(std::time(nullptr), entry_of(job).name, result.outcome));
}

InstalledPaths Administration::installed_paths() {
    return {m_parts.general.config, m_parts.general.chronyc, m_parts.general.chronyd};
}

bool Administration::uses_distribution_unasked() {
    return m_parts.general.uses_distribution_unasked();
}

std::string Administration::worded(const char* text, const char* comment) {
    return QCoreApplication::translate("offers", text, comment).toStdString();
}

void Administration::show(const Alert& alert, AlertAnswered answered) {
    show_alert(&m_parts.window, alert, std::move(answered));
}

void Administration::stop_for_version(const std::string& program, const std::string& answer) {
    m_parts.window.stop_for_version(program, answer);
}

// The distribution's chrony is not ours to remove: the job says so, there is nothing to ask.
void Administration::confirm_removal() {
    const JobSetting setting = job_setting();
    if (!distribution_unit(setting.chronyd, m_parts.machine.looks_for_files()).empty())
        return m_menu.uninstall();
    show_question(&m_parts.window, removal_question(setting), [this](std::size_t button) {
        if (button == 0)
            m_menu.uninstall();
    });
}

void Administration::use_distribution(const DistributionChrony& chrony) {
    m_parts.general.config = chrony.config;
    m_parts.general.chronyc = chrony.chronyc;
    m_parts.general.chronyd = chrony.chronyd;
    m_parts.general.save(m_parts.settings);
    m_parts.window.cycle().programs_changed();
}

void Administration::ask_to_install() {
    show_question(&m_parts.window, first_run_alert(*this), [this](std::size_t button) {
        if (button == 0)
            install();
    });
}

void Administration::ask_to_use(const DistributionChrony& chrony) {
    show_question(&m_parts.window, system_chrony_alert(*this, chrony), [this, chrony](std::size_t button) {
        if (button == 0)
            use_distribution(chrony);
    });
}

void Administration::ask_for_rights() {
    m_jobs.obtain_rights([this] { m_parts.window.cycle().refresh(); });
}

void Administration::show_problem(PrivilegedProblem problem, const Failure& why) {
    if (problem == PrivilegedProblem::not_installed) {
        //: alert: %1 is a sentence with the reason
        Q_EMIT complained(Texts::tr("Helper install failed") + QStringLiteral("\n\n") + in_words(why));
        return;
    }
    const Alert alert{.identifier = "PasswordRequired",
                      //: alert: message
                      .message = Texts::tr("Authorization cancelled by user").toStdString(),
                      //: alert: informative text
                      .informative = Texts::tr("An admin login/password is required").toStdString(),
                      //: button of an alert
                      .buttons = {Texts::tr("Dismiss").toStdString()},
                      .kind = AlertKind::information};
    (void)show_unless_suppressed(m_parts.warnings, *this, alert, [](std::size_t) {});
}

void Administration::run(const AdminRequest& request, AdministrativeJobs::Done done) {
    m_jobs.run(request, [this, done = std::move(done)](const JobResult& result) {
        done(result);
        m_parts.window.cycle().refresh();
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
