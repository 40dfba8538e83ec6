#include "studies/freqtemp/freqtemp_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {

FreqTempSettings FreqTempSettings::load(const DefaultSettings& settings) {
    using tickervantage::load;
    return {.show_scatter_points = load(settings, settings::show_scatter_points),
            .show_mean_frequency = load(settings, settings::show_mean_frequency),
            .show_freq_bounds = load(settings, settings::show_freq_bounds),
            .show_last_record = load(settings, settings::show_last_record),
            .max_samples = load(settings, settings::max_samples),
            .regression_order = load(settings, settings::regression_order)};
}

void FreqTempSettings::save(DefaultSettings& settings) const {
    using tickervantage::save;
    save(settings, settings::show_scatter_points, show_scatter_points);
    save(settings, settings::show_mean_frequency, show_mean_frequency);
    save(settings, settings::show_freq_bounds, show_freq_bounds);
    save(settings, settings::show_last_record, show_last_record);
    save(settings, settings::max_samples, max_samples);
    save(settings, settings::regression_order, regression_order);
}

} // namespace tickervantage
