#include "studies/tracking/tracking_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {
namespace {

struct SeriesKeys {
    const BooleanKey& shown;
    const ColorKey* color; // null: not kept
};

// By Series.
constexpr std::array<SeriesKeys, series_count> series_keys{{
    {settings::tracking_offsetShow, &settings::tracking_offsetColor},
    {settings::tracking_meanOffsetShow, &settings::tracking_meanOffsetColor},
    {settings::tracking_rmsOffsetShow, &settings::tracking_rmsOffsetColor},
    {settings::tracking_sdOffsetShow, nullptr},
    {settings::tracking_systemtimeShow, &settings::tracking_systemtimeColor},
    {settings::tracking_mean_systemtimeShow, &settings::tracking_mean_systemtimeColor},
    {settings::tracking_rms_systemtimeShow, &settings::tracking_rms_systemtimeColor},
    {settings::tracking_rootdispersionShow, &settings::tracking_rootdispersionColor},
    {settings::tracking_frequencyShow, &settings::tracking_frequencyColor},
}};

// Of the offset's standard deviation, only whether it is shown.
template <class Settings, class Visit>
void each_field(Settings& record, const Visit& visit) {
    visit(settings::tracking_vZoom, record.vZoom);
    visit(settings::tracking_hZoom, record.hZoom);
    visit(settings::tracking_vScale, record.vScale);
    visit(settings::tracking_use_logscale, record.legend.use_logscale);
    visit(settings::tracking_dateTimeRange, record.dataTimeRange);
    for (std::size_t i = 0; i < series_count; ++i) {
        visit(series_keys[i].shown, record.legend.shown[i]);
        if (series_keys[i].color)
            visit(*series_keys[i].color, record.legend.colors[i]);
    }
}

} // namespace

TrackingSettings TrackingSettings::defaults() {
    TrackingSettings result;
    result.legend.colors.fill(settings::sdOffsetColor);
    each_field(result, restoring());
    return result;
}

TrackingSettings TrackingSettings::load(const DefaultSettings& settings) {
    TrackingSettings result = defaults();
    each_field(result, loading(settings));
    return result;
}

void TrackingSettings::save(DefaultSettings& settings) const {
    each_field(*this, saving(settings));
}

int range_hours(int index) {
    return index >= 0 && index < range_count ? hours_of_ranges[static_cast<std::size_t>(index)] : 0;
}

} // namespace tickervantage
