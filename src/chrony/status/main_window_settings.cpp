#include "chrony/status/main_window_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {

namespace {

template <class Settings, class Visit>
void each_field(Settings& record, const Visit& visit) {
    visit(settings::chronyc_command, record.chronyCommand);
    visit(settings::meter_view, record.m_meterview);
    visit(settings::meter_error_bound, record.meter_error_bound);
    visit(settings::ip_address, record.showIPaddress);
    visit(settings::original_name, record.showOriginalName);
    visit(settings::chronyc_interval, record.m_interval);
    visit(settings::ntpdata_server, record.m_server);
    visit(settings::CHRONYC_Font, record.output_font);
}

} // namespace

MainWindowSettings MainWindowSettings::load(const DefaultSettings& settings) {
    MainWindowSettings loaded;
    const auto view = tickervantage::load(settings, settings::meter_view);
    if (view >= 0 && view < meter_view_count)
        each_field(loaded, loading(settings));
    else
        loaded.chronyCommand = tickervantage::load(settings, settings::chronyc_command);
    return loaded;
}

void MainWindowSettings::save(DefaultSettings& settings) const {
    each_field(*this, saving(settings));
}

} // namespace tickervantage
