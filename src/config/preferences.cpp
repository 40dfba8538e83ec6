#include "config/preferences.h"

#include "config/settings_catalogue.h"

namespace tickervantage {

PreferencesGeneral PreferencesGeneral::load(const DefaultSettings& settings) {
    const auto read = [&settings](const auto& key) {
        return tickervantage::load(settings, key);
    };
    return {.config = read(settings::file_config),
            .chronyc = read(settings::file_chronyc),
            .chronyd = read(settings::file_chronyd),
            .chronywake = read(settings::file_chronywake),
            .make_thresh = read(settings::make_thresh),
            .make_limit = read(settings::make_limit),
            .burst_good = read(settings::burst_good),
            .burst_max = read(settings::burst_max),
            .burst_netmask = read(settings::burst_netmask),
            .launch_login = read(settings::launch_login),
            .adj_system = read(settings::adj_system),
            .install_wake = read(settings::install_wake)};
}

void PreferencesGeneral::save(DefaultSettings& settings) const {
    const auto write = [&settings](const auto& key, const auto& value) {
        tickervantage::save(settings, key, value);
    };
    write(settings::file_config, config);
    write(settings::file_chronyc, chronyc);
    write(settings::file_chronyd, chronyd);
    write(settings::file_chronywake, chronywake);
    write(settings::make_thresh, make_thresh);
    write(settings::make_limit, make_limit);
    write(settings::burst_good, burst_good);
    write(settings::burst_max, burst_max);
    write(settings::burst_netmask, burst_netmask);
    write(settings::launch_login, launch_login);
    write(settings::adj_system, adj_system);
    write(settings::install_wake, install_wake);
}

void PreferencesGeneral::restore_defaults() {
    *this = {.config = std::string(settings::file_config.fallback),
             .chronyc = std::string(settings::file_chronyc.fallback),
             .chronyd = std::string(settings::file_chronyd.fallback),
             .chronywake = std::string(settings::file_chronywake.fallback),
             .make_thresh = settings::make_thresh.fallback,
             .make_limit = settings::make_limit.fallback,
             .burst_good = settings::burst_good.fallback,
             .burst_max = settings::burst_max.fallback,
             .burst_netmask = std::string(settings::burst_netmask.fallback),
             .launch_login = launch_login,
             .adj_system = settings::adj_system.fallback,
             .install_wake = settings::install_wake.fallback};
}

PreferencesAdvanced PreferencesAdvanced::load(const DefaultSettings& settings) {
    return {.restart_gpsd = tickervantage::load(settings, settings::restart_gpsd),
            .frequency = tickervantage::load(settings, settings::enable_frequency_win),
            .spectrum = tickervantage::load(settings, settings::enable_spectrum_win)};
}

void PreferencesAdvanced::save(DefaultSettings& settings) const {
    tickervantage::save(settings, settings::restart_gpsd, restart_gpsd);
    tickervantage::save(settings, settings::enable_frequency_win, frequency);
    tickervantage::save(settings, settings::enable_spectrum_win, spectrum);
}

} // namespace tickervantage
