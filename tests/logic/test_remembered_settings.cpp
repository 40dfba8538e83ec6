// What the windows remember: every setting of the catalogue that a record holds comes back as it was stored.
#include "chrony/status/main_window_settings.h"
#include "settings/preferences.h"
#include "settings/settings_catalogue.h"
#include "studies/freqtemp/freqtemp_settings.h"
#include "studies/tracking/tracking_settings.h"
#include "support/memory_stores.h"
#include "support/test.h"

namespace tickervantage {
namespace {

using testing::MemorySettingsStore;

// A value that the setting takes and does not start with.
std::vector<std::string> another_value(const SettingKey& setting) {
    const auto usual = check_setting(setting, default_text(setting).value_or(""));
    for (const auto* candidate : {"true", "false", "5", "2", "0", "99", "/other", "#010203", "Sans,12"})
        if (const auto value = check_setting(setting, candidate); value && value != usual)
            return *value;
    ADD_FAILURE() << key_of(setting) << " takes none of these";
    return {};
}

template <class Record>
void pass_through(MemorySettingsStore& from, MemorySettingsStore& to) {
    const DefaultSettings source(from);
    DefaultSettings target(to);
    Record::load(source).save(target);
}

TEST(RememberedSettings, ComeBackAsTheyWereStored) {
    // In no record: each is loaded and saved where it is used.
    const std::set<std::string_view> elsewhere{
        "IgnoreWarnings",  "SPECTRUM_duration",    "SPECTRUM_interval", "recent_configurations", "recent_logs",
        "sync_ntp_server", "sync_restart_chronyd", "sync_timeout",      "watch_bound",           "watch_holdover",
        "watch_notify",    "watch_quiet",          "watch_raised",      "watch_sources",         "watch_step",
        "watch_tray",      "daemon_hosts"};
    MemorySettingsStore stored;
    MemorySettingsStore saved;
    for (const auto& setting : all_settings())
        stored.values[std::string(key_of(setting))] = another_value(setting);
    pass_through<MainWindowSettings>(stored, saved);
    pass_through<PreferencesGeneral>(stored, saved);
    pass_through<PreferencesAdvanced>(stored, saved);
    pass_through<TrackingSettings>(stored, saved);
    pass_through<FreqTempSettings>(stored, saved);
    for (const auto& [key, value] : stored.values) {
        if (elsewhere.contains(key))
            continue;
        const auto found = saved.values.find(key);
        EXPECT_EQ(found == saved.values.end() ? std::vector<std::string>{"nothing"} : found->second, value) << key;
    }
}

} // namespace
} // namespace tickervantage
