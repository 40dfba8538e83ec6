#include "app/settings_windows.h"

#include "app/bring_to_front.h"
#include "app/config_windows.h"
#include "gui/preferences/preferences_advanced.h"
#include "gui/preferences/preferences_general.h"
#include "gui/preferences/preferences_watch.h"
#include "linux/autostart.h"
#include "linux/shared_text_file.h"
#include "roothelper/jobs/administrative_jobs.h"

#include <QPointer>

#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

// The settings lie in a folder of $XDG_CONFIG_HOME, in a demonstration in one that stands for it.
std::shared_ptr<const LaunchAtLogin> launch_at_login(const Paths& paths) {
    const auto config_home = std::filesystem::path(paths.settings).parent_path().parent_path();
    return std::make_shared<const Autostart>((config_home / "autostart").string(),
                                             paths.bundle_program("tickervantage"));
}

} // namespace

SettingsWindows::SettingsWindows(SettingsWindowsParts parts) : m_parts(std::move(parts)) {}

SettingsWindows::~SettingsWindows() = default;

void SettingsWindows::make_servers() {
    m_servers = std::make_unique<ServersWindow>(ServersWindowParts{
        .list = std::make_shared<SharedTextFile>(m_parts.paths.data_home + "/Tickervantage/servers.txt"),
        .queue = m_parts.queue,
        .main_thread = m_parts.main_thread,
        .general = m_parts.general,
        .files = m_parts.files,
        .logger = m_parts.logger});
    connect(&m_parts.editors, &ConfigWindows::is_open_changed, m_servers.get(), &ServersWindow::set_editor_open);
    connect(m_servers.get(), &ServersWindow::insert_wanted, &m_parts.editors, &ConfigWindows::insert);
    m_servers->windowDidLoad();
    m_servers->set_editor_open(m_parts.editors.is_open());
}

void SettingsWindows::make_preferences() {
    m_preferences = std::make_unique<Preferences>(PreferencesParts{.settings = m_parts.settings,
                                                                   .queue = m_parts.queue,
                                                                   .main_thread = m_parts.main_thread,
                                                                   .warnings = m_parts.warnings,
                                                                   .general = m_parts.general,
                                                                   .advanced = m_parts.advanced,
                                                                   .probes = m_parts.probes,
                                                                   .launch_at_login = launch_at_login(m_parts.paths),
                                                                   .history_service = m_parts.history_service,
                                                                   .has_helper = m_parts.jobs != nullptr,
                                                                   .has_fixed_paths = m_parts.has_fixed_paths,
                                                                   .version = TICKERVANTAGE_VERSION});
    auto& general = m_preferences->general();
    connect(&general, &PreferencesGeneralPane::changed, this, &SettingsWindows::general_changed);
    connect(&general, &PreferencesGeneralPane::defaults_wanted, this, &SettingsWindows::defaults_wanted);
    connect(&m_preferences->advanced(), &PreferencesAdvancedPane::changed, this, &SettingsWindows::advanced_changed);
    connect(&m_preferences->watch(), &PreferencesWatchPane::changed, this, &SettingsWindows::watch_changed);
    if (m_parts.jobs != nullptr)
        serve_wishes(general);
}

// The pane may have gone when a job comes to its end.
void SettingsWindows::serve_wishes(PreferencesGeneralPane& pane) {
    using Pane = PreferencesGeneralPane;
    const auto serve = [this, &pane](auto wish, AdminJob job, auto show) {
        connect(&pane, wish, &pane, [this, job, show, pane = QPointer(&pane)] {
            m_parts.jobs->run({job}, [show, pane](const JobResult& result) {
                if (pane)
                    show(*pane, result);
            });
        });
    };
    serve(&Pane::wake_service_wanted, AdminJob::wake_tool,
          [](Pane& shown, const JobResult& result) { shown.show_wake_service(result.outcome); });
    serve(&Pane::wake_test_wanted, AdminJob::run_wake, [](Pane& shown, const JobResult& result) {
        shown.show_wake_test(result.outcome.map([&result] { return result.output; }));
    });
    serve(&Pane::adjustment_wanted, AdminJob::adjust_clock, [this](Pane& shown, const JobResult& result) {
        shown.show_adjustment(result.outcome);
        Q_EMIT daemon_changed();
    });
}

void SettingsWindows::showServers() {
    if (!m_servers)
        make_servers();
    bring_to_front(*m_servers);
}

void SettingsWindows::showPreferences(Preferences::Pane pane) {
    if (!m_preferences)
        make_preferences();
    m_preferences->show_pane(pane);
}

void SettingsWindows::show_records() {
    if (m_preferences && m_preferences->isVisible())
        m_preferences->show_records();
}

bool SettingsWindows::finish() {
    constexpr std::chrono::seconds patience{5};
    const bool list_saved = !m_servers || m_servers->finish(patience);
    const bool login_saved = !m_preferences || m_preferences->finish(patience);
    return list_saved && login_saved;
}

} // namespace tickervantage
