#include "settings/preferences.h"

#include "settings/settings_catalogue.h"

#include <algorithm>
#include <array>

namespace tickervantage {

namespace {

constexpr std::array path_keys{&settings::file_config, &settings::file_chronyc, &settings::file_chronyd,
                               &settings::file_chronywake};

template <class Paths, class Visit>
void each_path(Paths& paths, const Visit& visit) {
    visit(settings::file_config, paths.config);
    visit(settings::file_chronyc, paths.chronyc);
    visit(settings::file_chronyd, paths.chronyd);
    visit(settings::file_chronywake, paths.chronywake);
}

// The rest of General, but launch_login, which has no default to go back to: a file says whether it is so.
template <class General, class Visit>
void each_choice(General& general, const Visit& visit) {
    visit(settings::make_thresh, general.make_thresh);
    visit(settings::make_limit, general.make_limit);
    visit(settings::burst_good, general.burst_good);
    visit(settings::burst_max, general.burst_max);
    visit(settings::burst_netmask, general.burst_netmask);
    visit(settings::adj_system, general.adj_system);
    visit(settings::install_wake, general.install_wake);
}

template <class Advanced, class Visit>
void each_field(Advanced& advanced, const Visit& visit) {
    visit(settings::restart_gpsd, advanced.restart_gpsd);
    visit(settings::enable_frequency_win, advanced.frequency);
    visit(settings::enable_spectrum_win, advanced.spectrum);
}

void load_paths(PreferencesGeneral& general, const DefaultSettings& settings, const ChronyPaths& usual) {
    const auto is_set = [&settings](const TextKey* key) {
        return settings.is_stored(key->key);
    };
    general.usual = std::ranges::any_of(path_keys, is_set) ? documented_paths() : usual;
    general.config = general.usual.config;
    general.chronyc = general.usual.chronyc;
    general.chronyd = general.usual.chronyd;
    general.chronywake = general.usual.chronywake;
    each_path(general,
              [&settings](const TextKey& key, std::string& path) { path = settings.loadString(key.key, path); });
}

} // namespace

ChronyPaths documented_paths() {
    ChronyPaths paths;
    each_path(paths, restoring());
    return paths;
}

PreferencesGeneral PreferencesGeneral::load(const DefaultSettings& settings, const ChronyPaths& usual) {
    PreferencesGeneral loaded;
    load_paths(loaded, settings, usual);
    each_choice(loaded, loading(settings));
    loaded.launch_login = tickervantage::load(settings, settings::launch_login);
    return loaded;
}

void PreferencesGeneral::save(DefaultSettings& settings) const {
    if (usual.from_distribution && paths() != usual)
        for (const TextKey* key : path_keys)
            if (!settings.is_stored(key->key))
                settings.forget(key->key);
    each_path(*this, saving(settings));
    each_choice(*this, saving(settings));
    tickervantage::save(settings, settings::launch_login, launch_login);
}

void PreferencesGeneral::restore_defaults(DefaultSettings& settings, const ChronyPaths& former) {
    for (const TextKey* key : path_keys)
        settings.reset(key->key);
    load_paths(*this, settings, former);
    each_choice(*this, restoring());
}

PreferencesAdvanced PreferencesAdvanced::load(const DefaultSettings& settings) {
    PreferencesAdvanced loaded;
    each_field(loaded, loading(settings));
    return loaded;
}

void PreferencesAdvanced::save(DefaultSettings& settings) const {
    each_field(*this, saving(settings));
}

} // namespace tickervantage
