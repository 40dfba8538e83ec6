#include "app/privileged_menu.h"

#include "chrony/status/status_cycle.h"
#include "qt/spoken.h"

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
[[maybe_unused]] constexpr std::array<const char*, 12> progress_texts{
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
    QT_TRANSLATE_NOOP("administration", "Rotating chrony's logs"),
    QT_TRANSLATE_NOOP("administration", "Synchronising the clock")};

} // namespace

QString translated_progress(const std::string& text) {
    return text.empty() ? QString() : Texts::tr(text.c_str());
}

PrivilegedMenu::PrivilegedMenu(PrivilegedMenuParts parts) : m_parts(std::move(parts)) {
    m_parts.jobs.on_progress([show = m_parts.show_progress](const std::string& text) {
        const QString words = translated_progress(text);
        //: main window, status line: %1 is a job that needs administrator rights and is under way
        show(words.isEmpty() ? QString() : Texts::tr("%1…").arg(words));
    });
}

void PrivilegedMenu::connect_items(const ApplicationMenus& menus) {
    menus.on("installChrony", [this] { install(); });
    menus.on("runChronywake", [this] {
        run({AdminJob::run_wake}, [this](const JobResult& result) {
            //: alert after a run of chronywake: %1 is what it answered
            m_parts.say(Texts::tr("chronywake answered: %1").arg(QString::fromStdString(result.output)));
        });
    });
    menus.on("uninstallChrony", [this] { uninstall(); });
    for (const auto& [name, job] : {std::pair{"startChrony", AdminJob::start},
                                    {"stopChrony", AdminJob::stop},
                                    {"rotateLogs", AdminJob::rotate_logs}})
        menus.on(name, [this, job = job] { run_and_tell({job}); });
    QObject::connect(menus.m_action, &QMenu::aboutToShow, menus.m_action, [this, menus] {
        for (const char* name : exclusive_actions)
            menus.actions.at(name)->setEnabled(!m_parts.jobs.busy());
    });
}

void PrivilegedMenu::run(const AdminRequest& request, std::function<void(const JobResult& result)> done) {
    m_parts.jobs.run(request, [this, done = std::move(done)](const JobResult& result) {
        if (result.done)
            done(result);
        else
            tell(result);
        m_parts.cycle().refresh();
    });
}

void PrivilegedMenu::run_and_tell(const AdminRequest& request) {
    run(request, [](const JobResult&) {});
}

void PrivilegedMenu::tell(const JobResult& result) {
    if (!result.sentence.empty())
        m_parts.say(spoken(result.sentence));
}

void PrivilegedMenu::install() {
    if (m_parts.jobs.busy())
        return;
    m_parts.cycle().begin_installation();
    m_parts.jobs.run({AdminJob::install}, [this](const JobResult& installed) { start_installed(installed); });
}

void PrivilegedMenu::uninstall() {
    m_parts.confirm_removal([this] { run_and_tell({AdminJob::uninstall}); });
}

void PrivilegedMenu::start_installed(const JobResult& installed) {
    const auto end = [this](const JobResult& result) {
        tell(result);
        m_parts.cycle().rebuild_runner(); // another program may lie at the configured path now
        m_parts.cycle().end_installation();
    };
    if (installed.done)
        m_parts.jobs.run({AdminJob::start}, end);
    else
        end(installed);
}

} // namespace tickervantage
