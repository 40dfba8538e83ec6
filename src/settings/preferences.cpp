#include "settings/preferences.h"

#include "settings/settings_catalogue.h"

#include <algorithm>
#include <array>

namespace tickervantage {

namespace {

constexpr std::array path_keys{&settings::file_config, &settings::file_chronyc, &settings::file_chronyd,
                               &settings::file_chronywake};

} // namespace

ChronyPaths documented_paths() {
    return {.config = std::string(settings::file_config.fallback),
            .chronyc = std::string(settings::file_chronyc.fallback),
            .chronyd = std::string(settings::file_chronyd.fallback),
            .chronywake = std::string(settings::file_chronywake.fallback)};
}

PreferencesGeneral PreferencesGeneral::load(const DefaultSettings& settings, const ChronyPaths& usual) {
    const auto read = [&settings](const auto& key) {
        return tickervantage::load(settings, key);
    };
    const auto is_set = [&settings](const TextKey* key) {
        return settings.is_stored(key->key);
    };
    const ChronyPaths paths = std::ranges::any_of(path_keys, is_set) ? documented_paths() : usual;
    return {.config = settings.loadString(settings::file_config.key, paths.config),
            .chronyc = settings.loadString(settings::file_chronyc.key, paths.chronyc),
            .chronyd = settings.loadString(settings::file_chronyd.key, paths.chronyd),
            .chronywake = settings.loadString(settings::file_chronywake.key, paths.chronywake),
            .make_thresh = read(settings::make_thresh),
            .make_limit = read(settings::make_limit),
            .burst_good = read(settings::burst_good),
            .burst_max = read(settings::burst_max),
            .burst_netmask = read(settings::burst_netmask),
            .launch_login = read(settings::launch_login),
            .adj_system = read(settings::adj_system),
            .install_wake = read(settings::install_wake),
            .usual = paths};
}

void PreferencesGeneral::save(DefaultSettings& settings) const {
    const auto write = [&settings](const auto& key, const auto& value) {
        tickervantage::save(settings, key, value);
    };
    if (usual.from_distribution && paths() != usual)
        for (const TextKey* key : path_keys)
            if (!settings.is_stored(key->key))
                settings.forget(key->key);
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

void PreferencesGeneral::restore_defaults(DefaultSettings& settings, const ChronyPaths& former) {
    for (const TextKey* key : path_keys)
        settings.reset(key->key);
    const auto fresh = load(settings, former);
    usual = fresh.usual;
    config = fresh.config;
    chronyc = fresh.chronyc;
    chronyd = fresh.chronyd;
    chronywake = fresh.chronywake;
    adj_system = settings::adj_system.fallback;
    install_wake = settings::install_wake.fallback;
    make_thresh = settings::make_thresh.fallback;
    make_limit = settings::make_limit.fallback;
    burst_good = settings::burst_good.fallback;
    burst_max = settings::burst_max.fallback;
    burst_netmask = settings::burst_netmask.fallback;
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
