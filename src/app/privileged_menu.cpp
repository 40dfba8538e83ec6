#include "app/privileged_menu.h"

#include "chrony/status/status_cycle.h"
#include "qt/in_words.h"

#include <QCoreApplication>
#include <QMenu>

#include <utility>

namespace tickervantage {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(administration)
};

/* TRANSLATOR administration
   main window: jobs that need administrator rights, and what is told of them while and after they run. */
// Made in the catalogue of jobs.
[[maybe_unused]] constexpr std::array<const char*, 14> progress_texts{
    QT_TRANSLATE_NOOP("administration", "Installing chrony software"),
    QT_TRANSLATE_NOOP("administration", "Removing chrony software"),
    QT_TRANSLATE_NOOP("administration", "Starting chronyd daemon"),
    QT_TRANSLATE_NOOP("administration", "Restarting chronyd daemon"),
    QT_TRANSLATE_NOOP("administration", "Stopping chronyd daemon"),
    QT_TRANSLATE_NOOP("administration", "Installing chronywake"),
    QT_TRANSLATE_NOOP("administration", "Removing chronywake"),
    QT_TRANSLATE_NOOP("administration", "Running chronywake"),
    QT_TRANSLATE_NOOP("administration", "Installing the configuration"),
    QT_TRANSLATE_NOOP("administration", "Bringing back a configuration"),
    QT_TRANSLATE_NOOP("administration", "Installing the compensation"),
    QT_TRANSLATE_NOOP("administration", "Taking back the compensation"),
    QT_TRANSLATE_NOOP("administration", "Rotating chrony's logs"),
    QT_TRANSLATE_NOOP("administration", "Synchronising the clock")};

} // namespace

QString translated_progress(const std::string& text) {
    if (text.empty())
        return {};
    //: main window, status line: %1 is a job that needs administrator rights and is under way
    return Texts::tr("%1…").arg(Texts::tr(text.c_str()));
}

void PrivilegedMenu::connect_items(const ApplicationMenus& menus) {
    menus.on("installChrony", [this] { install(); });
    menus.on("runChronywake", [this] { run_chronywake(); });
    menus.on("uninstallChrony", [this] { Q_EMIT removal_wanted(); });
    for (const auto& [name, job] : {std::pair{"startChrony", AdminJob::start},
                                    {"stopChrony", AdminJob::stop},
                                    {"rotateLogs", AdminJob::rotate_logs}})
        menus.on(name, [this, job = job] { run({job}); });
    connect(menus.m_action, &QMenu::aboutToShow, this, [this, menus] {
        for (const char* name : exclusive_actions)
            menus.actions.at(name)->setEnabled(!m_jobs.busy());
    });
}

void PrivilegedMenu::run(const AdminRequest& request) {
    m_jobs.run(request, [this](const JobResult& result) {
        tell(result);
        m_cycle.refresh();
    });
}

void PrivilegedMenu::run_chronywake() {
    m_jobs.run({AdminJob::run_wake}, [this](const JobResult& result) {
        tell(result);
        if (result.outcome)
            //: alert after a run of chronywake: %1 is what it answered
            Q_EMIT informed(Texts::tr("chronywake answered: %1").arg(QString::fromStdString(result.output)));
        m_cycle.refresh();
    });
}

void PrivilegedMenu::tell(const JobResult& result) {
    if (is_untold_failure(result.outcome))
        Q_EMIT complained(in_words(result.outcome.error()));
}

void PrivilegedMenu::install() {
    if (m_jobs.busy())
        return;
    m_cycle.begin_installation();
    m_jobs.run({AdminJob::install}, [this](const JobResult& installed) { start_installed(installed); });
}

void PrivilegedMenu::start_installed(const JobResult& installed) {
    const auto end = [this](const JobResult& result) {
        tell(result);
        m_cycle.rebuild_runner(); // another program may lie at the configured path now
        m_cycle.end_installation();
    };
    if (installed.outcome)
        m_jobs.run({AdminJob::start}, end);
    else
        end(installed);
}

} // namespace tickervantage
