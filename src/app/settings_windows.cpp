#include "app/settings_windows.h"

#include "app/bring_to_front.h"
#include "app/desktop_links.h"
#include "linux/autostart.h"
#include "linux/path_state.h"
#include "linux/shared_text_file.h"
#include "linux/small_file.h"

#include <filesystem>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::size_t largest_configuration = 16U << 20U;

int read_text(const std::string& path, std::string& text, std::string& sentence) {
    SmallFile file = read_small_file(path, largest_configuration);
    if (file.outcome != SmallFile::Outcome::read) {
        sentence = "Cannot read " + path + ": " + file.reason + ".";
        return -1;
    }
    text = std::move(file.bytes);
    return 0;
}

// The settings lie in a folder of $XDG_CONFIG_HOME, in a demonstration in one that stands for it.
LaunchAtLogin launch_at_login(const Paths& paths) {
    const auto config_home = std::filesystem::path(paths.settings).parent_path().parent_path();
    const auto agent =
        std::make_shared<const Autostart>((config_home / "autostart").string(), paths.bundle_program("tickervantage"));
    return {.writePlist = [agent](std::string& sentence) { return agent->writePlist(sentence); },
            .unlinkAgent = [agent](std::string& sentence) { return agent->unlinkAgent(sentence); },
            .agentIsValid =
                [agent] {
                    return agent->agentIsValid();
                }};
}

} // namespace

SettingsWindows::SettingsWindows(SettingsWindowsParts parts) : m_parts(std::move(parts)) {}

SettingsWindows::~SettingsWindows() = default;

ServersWindowParts SettingsWindows::servers_parts() {
    return {.list = std::make_shared<SharedTextFile>(m_parts.paths.data_home + "/Tickervantage/servers.txt"),
            .queue = m_parts.queue,
            .main_thread = m_parts.main_thread,
            .configuration_path = [this] { return m_parts.general.config; },
            .read_text = read_text,
            .editor_is_open = m_parts.editor_is_open,
            .insert_into_editor = m_parts.insert_into_editor,
            .open_page = open_page,
            .log =
                [this](std::string_view sentence) {
                    m_parts.logger.log(LogLevel::info, sentence);
                }};
}

PreferencesParts SettingsWindows::preferences_parts() {
    return {.settings = m_parts.settings,
            .queue = m_parts.queue,
            .main_thread = m_parts.main_thread,
            .warnings = m_parts.warnings,
            .general = m_parts.general,
            .advanced = m_parts.advanced,
            .path_state = path_state,
            .launch_at_login = launch_at_login(m_parts.paths),
            .usual_paths = m_parts.usual_paths,
            .general_changed = m_parts.general_changed,
            .advanced_changed = m_parts.advanced_changed,
            .install_or_remove_wake = m_parts.install_or_remove_wake,
            .run_chronywake = m_parts.run_chronywake,
            .adjust_clock = m_parts.adjust_clock,
            .version = TICKERVANTAGE_VERSION};
}

void SettingsWindows::showServers() {
    if (!m_servers) {
        m_servers = std::make_unique<ServersWindow>(servers_parts());
        m_servers->windowDidLoad();
    }
    bring_to_front(*m_servers);
}

void SettingsWindows::showPreferences(Preferences::Pane pane) {
    if (!m_preferences)
        m_preferences = std::make_unique<Preferences>(preferences_parts());
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
