// What a status cycle needs in a benchmark, the real things but for the settings, which stay in memory.
#pragma once

#include "base/broadcast.h"
#include "chrony/status/status_cycle.h"
#include "gui/common/desktop_links.h"
#include "linux/posix_execute.h"
#include "linux/serial_queue.h"
#include "roothelper/client/no_privileged_channel.h"
#include "settings/default_settings.h"
#include "settings/preferences.h"
#include "settings/settings_keys.h"
#include "support/memory_stores.h"

#include <QLatin1String>

#include <string>
#include <utility>
#include <vector>

namespace tickervantage::bench {

class CycleParts {
public:
    // chronyc is chosen as a user would, by the settings.
    CycleParts(MainThread& main_thread, MasterTimer& timer, const std::string& chronyc, const std::string& chronyd)
        : m_main_thread(main_thread), m_timer(timer), m_broadcast(main_thread) {
        m_settings.saveString(settings::file_chronyc.key, chronyc);
        m_settings.saveString(settings::file_chronyd.key, chronyd);
        m_settings.saveBool(settings::ip_address.key, true); // -n
    }
    ~CycleParts() { m_execute.cancel(); }
    CycleParts(const CycleParts&) = delete;
    CycleParts& operator=(const CycleParts&) = delete;

    [[nodiscard]] StatusCycleParts parts() {
        return {m_execute, m_actions, m_queue, m_report_queue, m_main_thread, m_timer, m_broadcast, m_settings};
    }

    [[nodiscard]] StatusCycleOptions options(std::vector<std::string> chronyc_arguments) {
        m_preferences = PreferencesGeneral::load(m_settings);
        return {.preferences = m_preferences,
                .bundle = {},
                .gpsd_application_found = [] { return has_application(QLatin1String(StatusCycle::GPSD_CONF_ID)); },
                .chronyc_arguments = std::move(chronyc_arguments)};
    }

    [[nodiscard]] DefaultSettings& settings() { return m_settings; }

private:
    testing::MemorySettingsStore m_store;
    DefaultSettings m_settings{m_store};
    PreferencesGeneral m_preferences;
    MainThread& m_main_thread;
    MasterTimer& m_timer;
    PosixExecute m_execute;
    NoPrivilegedChannel m_channel;
    PrivilegedActions m_actions{m_channel};
    Broadcast m_broadcast;
    SerialQueue m_report_queue{"net.brisklane.reports"}; // last: the queues' work uses all of the above
    SerialQueue m_queue{"net.brisklane.status"};
};

} // namespace tickervantage::bench
