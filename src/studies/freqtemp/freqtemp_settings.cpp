#include "studies/freqtemp/freqtemp_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {

namespace {

template <class Settings, class Visit>
void each_field(Settings& record, const Visit& visit) {
    visit(settings::show_scatter_points, record.show_scatter_points);
    visit(settings::show_mean_frequency, record.show_mean_frequency);
    visit(settings::show_freq_bounds, record.show_freq_bounds);
    visit(settings::show_last_record, record.show_last_record);
    visit(settings::max_samples, record.max_samples);
    visit(settings::regression_order, record.regression_order);
}

} // namespace

FreqTempSettings FreqTempSettings::load(const DefaultSettings& settings) {
    FreqTempSettings loaded;
    each_field(loaded, loading(settings));
    return loaded;
}

void FreqTempSettings::save(DefaultSettings& settings) const {
    each_field(*this, saving(settings));
}

} // namespace tickervantage
