#include "chrony/status/main_window_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {

MainWindowSettings MainWindowSettings::load(const DefaultSettings& settings) {
    const auto read = [&settings](const auto& key) {
        return tickervantage::load(settings, key);
    };
    MainWindowSettings loaded;
    loaded.chronyCommand = read(settings::chronyc_command);
    const auto view = read(settings::meter_view);
    if (view < 0 || view >= meter_view_count)
        return loaded;
    loaded.m_meterview = static_cast<meterView>(view);
    loaded.showIPaddress = read(settings::ip_address);
    loaded.showOriginalName = read(settings::original_name);
    loaded.m_interval = static_cast<int>(read(settings::chronyc_interval));
    loaded.m_server = read(settings::ntpdata_server);
    loaded.output_font = read(settings::CHRONYC_Font);
    return loaded;
}

void MainWindowSettings::save(DefaultSettings& settings) const {
    const auto write = [&settings](const auto& key, const auto& value) {
        tickervantage::save(settings, key, value);
    };
    write(settings::chronyc_command, chronyCommand);
    write(settings::meter_view, static_cast<int>(m_meterview));
    write(settings::ip_address, showIPaddress);
    write(settings::original_name, showOriginalName);
    write(settings::chronyc_interval, m_interval);
    write(settings::ntpdata_server, m_server);
    write(settings::CHRONYC_Font, output_font);
}

} // namespace tickervantage
