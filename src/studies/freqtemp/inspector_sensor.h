// What the frequency-temperature window tells about its sensors after every frequency: newest point and fit.
#pragma once

#include "base/color.h"
#include "studies/freqtemp/quad_regression.h"

#include <memory>
#include <string>
#include <vector>

namespace tickervantage {

inline constexpr const char* sensor_inspector_key = "sensor.inspector.update";

struct InspectorSensor {
    std::string name;       // shown in the sensor column: the sensor's description, or its key where there is none
    std::string key;        // the sensor's name in the scatter map
    double temperature = 0; // degrees Celsius, of the newest point
    double frequency = 0;   // ppm, of the newest point
    Color color;
    std::shared_ptr<const QuadRegression> regression; // never null; main thread only
};

// The notice's object, posted as std::shared_ptr<const Sensors>.
struct Sensors {
    std::vector<InspectorSensor> sensors; // those with a point at least, in the order of the menu
};

} // namespace tickervantage
