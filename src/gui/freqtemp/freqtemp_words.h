// What the frequency-temperature window says, in the user's language. Main thread.
#pragma once

#include "draw/plots/plot_caption.h"
#include "qt/canvas_colors.h"
#include "studies/freqtemp/freqtemp_view.h"
#include "studies/freqtemp/scatter_map.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

// Sensors' descriptions by their names; a sensor that is not there now is called by its name.
class SensorNames {
public:
    explicit SensorNames(const std::vector<tempSensor>& sensors) : m_sensors(sensors) {}

    [[nodiscard]] QString operator()(std::string_view name) const;

private:
    const std::vector<tempSensor>& m_sensors;
};

[[nodiscard]] QString words_of(const FreqTempReading& reading, const SensorNames& names);

// The shown sensors with points, each behind a square of its colour in that plot, as HTML. Empty: there are none.
[[nodiscard]] QString legend_of(const ScatterMap& map, const SensorNames& names, const CanvasColors& plot);

// How many points of which sensors are shown, for screen readers.
[[nodiscard]] QString description_of(const ScatterMap& map, const SensorNames& names);

// Why no point is shown. `path`: of the stored map.
[[nodiscard]] QString empty_words(bool is_ready, const std::vector<tempSensor>& sensors, const ScatterMap& map,
                                  const std::string& path);

// For a picture of the plot, which tells when it was made: points have no time. `fit`: what curve is fitted.
[[nodiscard]] PlotCaption caption_of(const FreqTempView& view, const SensorNames& names, const QString& fit);

} // namespace tickervantage
