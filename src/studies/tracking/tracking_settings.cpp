#include "studies/tracking/tracking_settings.h"

#include "settings/settings_catalogue.h"

namespace tickervantage {
namespace {

struct SeriesKeys {
    const BooleanKey& shown;
    const ColorKey* color; // null: not kept
};

// By Series.
const std::array<SeriesKeys, series_count>& series_keys() {
    static const std::array<SeriesKeys, series_count> keys{{
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
    return keys;
}

} // namespace

TrackingSettings TrackingSettings::defaults() {
    TrackingSettings result;
    for (std::size_t i = 0; i < series_count; ++i) {
        result.legend.shown[i] = series_keys()[i].shown.fallback;
        result.legend.colors[i] = series_keys()[i].color ? series_keys()[i].color->fallback : settings::sdOffsetColor;
    }
    result.legend.use_logscale = settings::tracking_use_logscale.fallback != 0;
    result.dataTimeRange = static_cast<int>(settings::tracking_dateTimeRange.fallback);
    result.vZoom = settings::tracking_vZoom.fallback;
    result.vScale = settings::tracking_vScale.fallback;
    result.hZoom = settings::tracking_hZoom.fallback;
    return result;
}

TrackingSettings TrackingSettings::load(const DefaultSettings& settings) {
    const auto read = [&settings](const auto& key) {
        return tickervantage::load(settings, key);
    };
    TrackingSettings result = defaults();
    result.vZoom = read(settings::tracking_vZoom);
    result.hZoom = read(settings::tracking_hZoom);
    result.vScale = read(settings::tracking_vScale);
    result.legend.use_logscale = read(settings::tracking_use_logscale) != 0;
    result.dataTimeRange = static_cast<int>(read(settings::tracking_dateTimeRange));
    for (std::size_t i = 0; i < series_count; ++i) {
        result.legend.shown[i] = read(series_keys()[i].shown);
        if (series_keys()[i].color)
            result.legend.colors[i] = read(*series_keys()[i].color);
    }
    return result;
}

void TrackingSettings::save(DefaultSettings& settings) const {
    const auto write = [&settings](const auto& key, const auto& value) {
        tickervantage::save(settings, key, value);
    };
    write(settings::tracking_vZoom, vZoom);
    write(settings::tracking_hZoom, hZoom);
    write(settings::tracking_vScale, vScale);
    write(settings::tracking_use_logscale, legend.use_logscale ? 1 : 0);
    write(settings::tracking_dateTimeRange, dataTimeRange);
    for (std::size_t i = 0; i < series_count; ++i) {
        write(series_keys()[i].shown, legend.shown[i]);
        if (series_keys()[i].color)
            write(*series_keys()[i].color, legend.colors[i]);
    }
}

int range_hours(int index) {
    static constexpr std::array<int, range_count> hours{0, 0, 1, 2, 3, 4, 6, 12, 24};
    return index >= 0 && index < range_count ? hours[static_cast<std::size_t>(index)] : 0;
}

} // namespace tickervantage
